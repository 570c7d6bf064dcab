#pragma once

#include "till/queue/queueoptions.h"

/// The commands of `korvel-till queue` that move messages to another machine's queue, and those
/// that give them this machine's credentials. They write to standard output and return 0; what
/// cannot be used is thrown as `openQueue` does.
namespace till::queuecommands {

/// `export`: moves what is not delivered to a file, without credentials.
/// @throws CannotDo when there is a file of that name.
int exportMessages(const QueueOptions &options, const QString &fileName);

/// `import`: takes the messages of such a file, with the credentials of this machine's settings.
/// @throws CannotDo when there is no such file.
int importMessages(const QueueOptions &options, const QString &fileName);

/// `reauthorise`: gives the undelivered loyalty messages the credentials of the settings.
/// @throws CannotDo when the settings have none, which a forgotten settings file looks like.
int reauthorise(const QueueOptions &options);

} // namespace till::queuecommands
