#pragma once

#include "simulation/backlog.h"
#include "simulation/policy.h"

namespace simulation {

/// Sends a till's backlog in passes as a policy says, one request at a time. A pass goes through
/// what is due in the order of enqueueing and tries each message once.
class Deliverer
{
public:
    /// Both must outlive this object.
    Deliverer(Backlog &backlog, const Policy &policy);

    /// Takes the next message of the pass in hand.
    /// @returns false when there is none: the pass is over.
    [[nodiscard]] bool take(Moment now);
    /// The message in hand is delivered.
    void succeed();
    /// The message in hand failed. The chances, each of [0, 1), are those of the message's wait and
    /// of the till's.
    void fail(Moment now, double messageChance, double tillChance);
    /// Whether enough failed in a row to end the pass.
    [[nodiscard]] bool isStopped() const { return m_resumeAt.has_value(); }
    /// Ends the pass.
    /// @returns when the next one begins, which may have passed; nothing when nothing waits.
    std::optional<Moment> endPass();

private:
    void stop(Moment now, double chance);

    Backlog *m_backlog;
    const Policy *m_policy;
    std::size_t m_position = 0; ///< of the message in hand; without one, where to look for the next
    int m_failuresInRow = 0;
    int m_stops = 0; ///< passes that ended early, less the successes
    std::optional<Moment> m_firstRetry; ///< of the messages that failed in this pass
    std::optional<Moment> m_resumeAt; ///< the pass is to end early; when the next one begins
};

} // namespace simulation
