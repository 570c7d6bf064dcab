#pragma once

#include "host/queue/queuemessage.h"

#include <QList>
#include <QStringList>

namespace till {

/// The states of those names, in that order.
/// @throws CannotDo for a name that is no state's.
[[nodiscard]] QList<MessageState> statesNamed(const QStringList &names);

/// The same for a command that can change messages of some states only.
/// @param changeable those states; what comes of no names at all.
/// @throws CannotDo also for the name of another state.
[[nodiscard]] QList<MessageState> changeableStates(
    const QStringList &names, const QList<MessageState> &changeable);

} // namespace till
