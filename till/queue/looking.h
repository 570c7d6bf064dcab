#pragma once

#include "till/queue/queueoptions.h"

#include <QStringList>

/// The commands of `korvel-till queue` that only look. They write to standard output and return an
/// exit status of the program; what cannot be used is thrown as `openQueue` does.
namespace till::queuecommands {

/// `list`: what is not delivered, in the order of enqueueing.
/// @param all    the delivered ones too.
/// @param states only those of these states, by their names; empty: whatever `all` says.
/// @throws CannotDo for a name that is no state's.
int list(const QueueOptions &options, bool all, const QStringList &states);

/// `status`: the figures of the queue. 0 good, 1 warning, 2 alarm.
int status(const QueueOptions &options);

/// `metrics`: the same figures as OpenMetrics text; 0 whatever they say.
int metrics(const QueueOptions &options);

/// `show`: one message with everything that is kept of it.
/// @param plain with credentials and card numbers.
/// @throws CannotDo when no message, or more than one, is meant.
int show(const QueueOptions &options, const QString &idBeginning, bool plain);

} // namespace till::queuecommands
