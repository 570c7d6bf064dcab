#pragma once

#include "host/queue/messagestore.h"
#include "host/queue/verdict.h"

#include <QHash>

/// Sends what waits in the outgoing queue.
namespace delivery {

/// Exchanges in a row without an answer after which a pass ends: the service, not a message, is
/// what fails then.
inline constexpr int failuresToStop = 3;
/// Bytes of an answer that are kept with its message.
inline constexpr int answerBytesKept = 65536;

/// Messages that were delivered before that time are kept no longer, see "Queue:keepDays".
[[nodiscard]] QDateTime keptSince();

/// What a pass sends.
enum class Extent : int
{
    Waiting, ///< everything that waits
    Due, ///< what waits and whose waiting time is over
};

/// One pass over the waiting messages in the order of enqueueing, each sent once. The attempt is
/// committed before the request goes out, and no transaction is open while it is on its way.
///
/// A pass that ended since nothing was reached, or since the credentials were not accepted, holds
/// back the next ones that send what is due, for a waiting time of their own. Answers that neither
/// accept nor refuse a message park it once they have gone on for "Queue:parkDays". Some of the
/// messages that were delivered more than "Queue:keepDays" ago are deleted.
/// @param verdicts who judges the answers, by queue.
/// @param observer may be empty.
/// @throws StorageError when the queue cannot be read or written; a message that was being sent is
///         taken up again by the next pass.
DeliveryReport deliver(MessageStore &store, const QHash<QString, VerdictFunction> &verdicts,
    Extent extent, const DeliveryObserver &observer = {});

} // namespace delivery
