#include "fuzz/mutation/mutate.h"

#include "fuzz/measure.h"

#include <cstring>

namespace fuzz {

namespace {

constexpr unsigned int bytesOnceIn = 32;

/// Puts an accepted input in the place of the given one, where there is one that fits.
std::size_t takeAccepted(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    const QByteArray input = acceptedInput(seed);
    const auto length = static_cast<std::size_t>(input.size());
    if (length == 0 || length > greatest)
        return size;
    std::memcpy(data, input.constData(), length);
    return length;
}

} // namespace

std::size_t mutateMostly(
    Mutator mutator, std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    const unsigned int rest = seed / bytesOnceIn;
    if (seed % bytesOnceIn == 0)
        return LLVMFuzzerMutate(data, size, greatest);
    if (seed % 2 == 0)
        size = takeAccepted(data, size, greatest, rest);
    const std::size_t mutated = mutator(data, size, greatest, rest);
    return mutated > 0 ? mutated : LLVMFuzzerMutate(data, size, greatest);
}

} // namespace fuzz
