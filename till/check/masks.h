#pragma once

#include "host/framework/tr.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace till::check {

struct MaskDefect
{
    tr::Tr what;
    tr::Tr remedy;
};

/// What is wrong with a mask: place holders that are not closed, or that name what is not there.
/// @param properties "object.property" that there are; the object may be a wildcard pattern, or
///                   empty where the property is found without it only.
[[nodiscard]] QList<MaskDefect> defectsOfMask(const QString &mask, const QStringList &properties);

} // namespace till::check
