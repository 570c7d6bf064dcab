#pragma once

#include "host/export.h"

#include <QString>
#include <QStringList>

/// Credentials and customers' data are for the till's user only.
namespace privacy {

/// For each of the paths that other users may read or change: which, its rights, and what to do.
/// A file of the administrator's may be read by its group: that is how a till gets settings that it
/// cannot change. What is not there is private.
[[nodiscard]] POSHOST_EXPORT QStringList looseRights(const QStringList &paths);

/// Logs the loose rights of every file that the configuration was read from, of the state folder,
/// and of the files and folders in it and in its queue, as warnings of "poshost.privacy". To be
/// called when the log has been set up.
POSHOST_EXPORT void warnOfLooseRights();

/// From now on a crash of this program leaves no image of its memory, with the password in it, on
/// disk. Its children inherit that.
POSHOST_EXPORT void leaveNoCore();

} // namespace privacy
