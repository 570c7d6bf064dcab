#pragma once

#include "till/check/effective.h"

#include <QByteArray>
#include <QString>

namespace till::check {

/// The request that the plug-in sends when that card is presented, by the settings and at this
/// time; its masks are filled with shop and number of the till, as far as the catalogue has them.
[[nodiscard]] QByteArray balanceRequest(const Effective &effective, const QString &card);

/// A message without a request: a service refuses it, and books nothing whatever it makes of it.
[[nodiscard]] QByteArray emptyRequest();

} // namespace till::check
