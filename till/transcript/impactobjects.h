#pragma once

#include "host/documents/abstractdocument.h"
#include "till/transcript/json.h"

#include <QList>
#include <QSharedPointer>

namespace till {

/// What the loyalty system granted, as the transcript shows it.
[[nodiscard]] Json discountImpactObjects(const QList<QSharedPointer<DiscountImpact>> &impacts);
[[nodiscard]] Json bonusImpactObjects(const QList<QSharedPointer<BonusImpact>> &impacts);
[[nodiscard]] Json bonusRecordObjects(const QList<DocumentBonusRecord> &records);

} // namespace till
