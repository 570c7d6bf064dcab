#pragma once

#include "emulator/amounts/amount.h"

#include <vector>

namespace emulator {

/// The rule with the greatest `from` that the sum reaches, the first of equals; null: none.
/// Points into `rules`.
template <typename Rule> const Rule *highestReached(const std::vector<Rule> &rules, Amount sum)
{
    const Rule *highest = nullptr;
    for (const Rule &rule : rules) {
        if (rule.from <= sum && (!highest || highest->from < rule.from))
            highest = &rule;
    }
    return highest;
}

} // namespace emulator
