#pragma once

#include <cstddef>
#include <functional>

namespace restart {

/// Does a number of pieces of work on as many threads as the machine has processors.
/// @param work called once for each number below `count`, on any thread; must not throw.
/// @param done called after each with how many are done, one call at a time.
void inParallel(std::size_t count, const std::function<void(std::size_t)> &work,
    const std::function<void(std::size_t)> &done);

} // namespace restart
