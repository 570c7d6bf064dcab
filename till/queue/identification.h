#pragma once

#include "host/queue/queueoffice.h"

namespace till {

/// The message whose id begins so.
/// @throws CannotDo when there is none, or more than one.
[[nodiscard]] QueueMessage messageBeginning(QueueOffice &office, const QString &idBeginning);

/// The ids that begin so, in that order, each once.
/// @throws CannotDo when one of them cannot be told.
[[nodiscard]] QStringList idsBeginning(QueueOffice &office, const QStringList &idBeginnings);

} // namespace till
