#pragma once

#include "till/queue/queueoptions.h"

#include <QStringList>

/// The commands of `korvel-till queue` that change messages. They write to standard output and
/// return an exit status of the program; what cannot be used is thrown as `openQueue` does.
namespace till::queuecommands {

/// Which messages a person means. In one way of the three.
struct Meant
{
    QStringList idBeginnings;
    QStringList states; ///< names of states: all messages of these
    bool all = false; ///< whatever the command can change
};

/// `retry`: lets messages that are pending, refused or parked be sent as soon as possible. 1 when
/// one that was named by its id could not be changed.
/// @throws CannotDo when a message or a state cannot be told, or none or several ways were taken to
///         say which are meant; nothing is then changed.
int retry(const QueueOptions &options, const Meant &meant);

/// `set-aside`: parks messages that are pending or refused; otherwise as `retry`.
int setAside(const QueueOptions &options, const Meant &meant);

} // namespace till::queuecommands
