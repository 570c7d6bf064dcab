#include "plugin/stickerorder.h"

#include "common/host/documents.h"

#include <algorithm>
#include <numeric>

namespace stickers {

namespace {

using Order = std::vector<std::size_t>;

/// Merges two neighbouring runs of `from` into the same place of `into`.
void mergeRuns(const Offers &offers, const Order &from, Order &into, std::size_t begin,
    std::size_t middle, std::size_t end)
{
    std::size_t left = begin;
    std::size_t right = middle;
    for (std::size_t place = begin; place < end; ++place) {
        const bool takesRight = left == middle
            || (right < end && isMoreProfitable(offers[from[right]], offers[from[left]]));
        into[place] = takesRight ? from[right++] : from[left++];
    }
}

} // namespace

bool isMoreProfitable(const Offer &left, const Offer &right)
{
    if (money::equal(left.value, right.value))
        return left.cost < right.cost;
    return money::counts(left.value - right.value);
}

// Values that are equal to a third one within the tolerance need not be equal to each other. The
// standard sorts may read beyond their range or fail their checks with such a comparison; this
// merge sort looks at its two runs only, whatever the answers.
Order profitOrder(const Offers &offers)
{
    const std::size_t count = offers.size();
    Order sorted(count);
    std::iota(sorted.begin(), sorted.end(), std::size_t{0});
    Order merged(count);
    for (std::size_t run = 1; run < count; run *= 2) {
        for (std::size_t begin = 0; begin < count; begin += 2 * run)
            mergeRuns(offers, sorted, merged, begin, std::min(begin + run, count),
                std::min(begin + 2 * run, count));
        sorted.swap(merged);
    }
    return sorted;
}

} // namespace stickers
