#pragma once

#include "host/export.h"

#include <QDateTime>
#include <QString>

#include <chrono>

/// Who has a message in hand while it is being sent.
namespace leaseowner {

/// A lease that its owner does not end is over after this time: well above what an exchange may
/// take.
inline constexpr std::chrono::milliseconds leaseLength = std::chrono::minutes(2);

/// A name for one deliverer of this process, different at every call:
/// "<process>@<host> started <ticks since boot> in <process namespace> #<count>".
[[nodiscard]] POSHOST_EXPORT QString makeName();

/// Whether the deliverer of that name is known to be no more: its process, on this host, has ended.
/// False where that cannot be told.
[[nodiscard]] POSHOST_EXPORT bool isGone(const QString &name);

/// Whether a lease binds nobody any more.
/// @param until when it ends by itself; an invalid time is over.
[[nodiscard]] POSHOST_EXPORT bool isOver(
    const QString &name, const QDateTime &until, const QDateTime &now);

} // namespace leaseowner
