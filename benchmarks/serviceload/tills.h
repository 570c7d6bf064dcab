#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <vector>

namespace serviceload {

struct Load
{
    quint16 port = 0;
    int tills = 0;
    int requestsInSecond = 0; ///< of all tills together
    int requestsInAll = 0;
    bool registers = false; ///< every second request registers the cheque of the one before
};

/// What came of it.
struct Outcome
{
    std::vector<double> milliseconds; ///< of each good answer, from the time it was due
    int failures = 0; ///< connections that broke and answers that were no success
    std::chrono::duration<double> time{};
};

/// Sends requests at a steady pace, each on a connection of its own, whether or not earlier ones
/// were answered; a till waits for its own one. On the calling thread until all are answered.
/// @param onTenth called after each tenth of them.
Outcome putLoadOn(const Load &load, const std::function<void(int tenth)> &onTenth);

} // namespace serviceload
