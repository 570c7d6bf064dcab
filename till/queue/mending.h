#pragma once

#include "till/queue/queueoptions.h"

#include <QStringList>

/// The commands of `korvel-till queue` that change messages. They write to standard output and
/// return an exit status of the program; what cannot be used is thrown as `openQueue` does.
namespace till::queuecommands {

/// `retry`: lets messages be sent as soon as possible. 1 when one of them could not be changed.
/// @param idBeginnings of at least one message.
/// @throws CannotDo when a message cannot be told; nothing is then changed.
int retry(const QueueOptions &options, const QStringList &idBeginnings);

/// `set-aside`: parks messages; otherwise as `retry`.
int setAside(const QueueOptions &options, const QStringList &idBeginnings);

} // namespace till::queuecommands
