#include "fuzz/mutation/linemutator.h"
#include "fuzz/mutation/mutate.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    return fuzz::mutateMostly(fuzz::mutateLine, data, size, greatest, seed);
}
