#pragma once

#include "simulation/moment.h"

#include <queue>

#include <cstdint>
#include <optional>
#include <vector>

namespace simulation {

/// What a loyalty service can do.
struct ServiceSize
{
    double capacity = 0; ///< requests a second, above 0
    Moment serviceTime{}; ///< of one request, above 0
    std::int64_t queueLimit = 0; ///< requests that may wait; one more is refused; 0: none may
};

/// A service that answers requests in the order of their arrival, so many of them side by side that
/// it reaches its capacity, lets some wait and refuses the rest. Refusing costs it nothing.
class Service
{
public:
    explicit Service(const ServiceSize &size);

    /// A request arrives; arrivals are given in the order of time.
    /// @returns when it is answered; nothing when it is refused, which the till learns at once.
    [[nodiscard]] std::optional<Moment> accept(Moment now);

    /// How many requests it works on side by side: capacity times service time, at least one. What
    /// rounding took or added is made up for by the time of a request.
    [[nodiscard]] int workers() const { return static_cast<int>(m_free.size()); }

private:
    /// Finer than a moment, so that a capacity of more than a request a millisecond comes out
    /// exact.
    using Fine = std::chrono::duration<double, std::milli>;

    std::vector<Fine> m_free; ///< when each worker has done what it took; workers take turns
    std::size_t m_turn = 0;
    std::queue<Fine> m_starts; ///< of the requests that wait
    Fine m_duration;
    std::size_t m_queueLimit;
};

} // namespace simulation
