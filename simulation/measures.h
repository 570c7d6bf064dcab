#pragma once

#include "simulation/backlog.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace simulation {

/// What is counted from the return of the service on. Moments are handed in as they are and handed
/// out as spans since its return. A till without messages counts nowhere.
class Measures
{
public:
    /// @param backlogs as they are before the first delivery.
    /// @param back     when the service returns.
    Measures(const std::vector<Backlog> &backlogs, Moment back);

    void noteRequest(Moment at, bool refused);
    /// @param isLast whether the till's backlog is empty now.
    void noteDelivery(int till, Moment at, bool isLast);

    [[nodiscard]] std::int64_t messages() const { return m_messages; }
    [[nodiscard]] std::int64_t requests() const { return m_requests; }
    [[nodiscard]] std::int64_t delivered() const { return m_delivered; }
    [[nodiscard]] bool isEmpty() const { return m_delivered == m_messages; }
    /// What arrived at the service, and what tills had answered with success, in each second.
    [[nodiscard]] const std::vector<int> &requestsBySecond() const { return m_requestsBySecond; }
    [[nodiscard]] const std::vector<int> &deliveredBySecond() const { return m_deliveredBySecond; }

    /// Most requests that arrived in one second.
    [[nodiscard]] int peak() const;
    /// Share of the requests that were refused, 0 to 1; 0 without requests.
    [[nodiscard]] double refusedShare() const;
    /// Requests that delivered nothing (refused, or answered too late) for each message delivered;
    /// 0 when none was.
    [[nodiscard]] double wastedPerMessage() const;
    /// Until every till had its first message delivered; nothing while one has not.
    [[nodiscard]] std::optional<Moment> longestWait() const;
    /// Until the last backlog was empty; nothing while one is not. 0 when all were from the start.
    [[nodiscard]] std::optional<Moment> emptyAfter() const;
    /// How long the last till took, as a multiple of the median till; nothing while a backlog is
    /// not empty, or where the median took no time.
    [[nodiscard]] std::optional<double> unfairness() const;

private:
    std::vector<bool> m_began; ///< by till, whether a message was delivered
    std::int64_t m_messages = 0;
    std::int64_t m_tillsToBegin = 0; ///< that had no message delivered yet
    Moment m_back;
    Moment m_lastBegin{};
    std::int64_t m_requests = 0;
    std::int64_t m_refused = 0;
    std::int64_t m_delivered = 0;
    std::vector<int> m_requestsBySecond;
    std::vector<int> m_deliveredBySecond;
    std::vector<Moment> m_emptied; ///< when the backlogs became empty, ascending
};

} // namespace simulation
