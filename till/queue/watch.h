#pragma once

#include "host/framework/tr.h"
#include "host/queue/backoff.h"
#include "host/queue/dbqueuebroker.h"
#include "till/queue/deliverytext.h"
#include "till/queue/queueoptions.h"
#include "till/queue/stoprequest.h"

#include <QDateTime>

#include <chrono>

namespace till {

/// How long the delivery service waits behind a pass at most, unless the queue changes: until
/// something is due, but not longer than `watchpause::longest`, since a deliverer that was killed
/// changes nothing, and clocks are set. What is due although the pass left it alone is in another
/// deliverer's hands, which is looked at less often.
/// @param nextDue as `DBQueueBroker::nextDue` gives it.
[[nodiscard]] std::chrono::milliseconds pauseBehind(
    const DeliveryReport &report, const QDateTime &now, const QDateTime &nextDue);

/// Pauses of the delivery service.
namespace watchpause {
inline constexpr std::chrono::milliseconds longest = std::chrono::seconds(30);
inline constexpr std::chrono::milliseconds othersAtWork = std::chrono::seconds(1);
/// Between two passes, whatever happens: a queue that others change all the time must not keep the
/// service looking all the time.
inline constexpr std::chrono::milliseconds shortest = std::chrono::milliseconds(250);
/// Between two looks at a queue that other machines change too.
inline constexpr std::chrono::milliseconds shared = std::chrono::seconds(1);
} // namespace watchpause

class FolderWatch;

/// The delivery service from its start to its end. Belongs to the thread of the queue.
class Watch
{
public:
    /// @param queue                     not owned; must outlive this.
    /// @param stop                      not owned; must outlive this.
    /// @param longestPauseBehindFailure behind passes that could not read or write the queue.
    Watch(DBQueueBroker &queue, const StopRequest &stop, bool json,
        std::chrono::milliseconds longestPauseBehindFailure = backoff::longestWait);

    /// Sends what is due, once, and tells of it when that was anything.
    /// @throws StorageError when the queue cannot be read or written.
    DeliveryReport pass() const;
    /// What is left in the queue.
    /// @throws StorageError when the queue cannot be read.
    [[nodiscard]] DeliveryRest rest() const;
    /// Pass behind pass until the stop is asked for. The first pass that fails is told
    /// of, and so is the first that does not behind it.
    /// @throws StorageError when the queue's folder cannot be watched.
    void run();

private:
    [[nodiscard]] std::chrono::milliseconds passAndPause() const;
    [[nodiscard]] std::chrono::milliseconds pauseBehindFailure() const;
    void waitBehindPass(const FolderWatch &folder, std::chrono::milliseconds pause) const;
    void noteUnusable(const tr::Tr &reason);
    void noteUsable();

    DBQueueBroker &m_queue;
    const StopRequest &m_stop;
    bool m_json;
    std::chrono::milliseconds m_longestPauseBehindFailure;
    int m_failures = 0; ///< passes in a row that could not use the queue
};

namespace queuecommands {

/// `watch`: delivers what is due, all the time, until SIGTERM or SIGINT; the message in hand is
/// finished. A line on standard output for each pass that did something. A queue that cannot be
/// read or written, the server of a shared one for instance, is told of once and tried again after
/// the waiting time of a message that failed as often; that it can be used again is told too.
/// @param once one pass only.
/// @return 0 at the end; with `once` as `deliver`.
/// @throws what `openQueue` throws, at the start.
int watch(const QueueOptions &options, bool once);

} // namespace queuecommands

} // namespace till
