#pragma once

#include "host/framework/tr.h"

/// What several commands of `korvel-till queue` say.
namespace till::queuetexts {

inline const tr::Tr changed(QStringLiteral("queueChanged"), QStringLiteral("изменено: %1"));
inline const tr::Tr none(QStringLiteral("queueNone"), QStringLiteral("нет"));

} // namespace till::queuetexts
