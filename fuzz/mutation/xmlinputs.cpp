#include "fuzz/mutation/mutate.h"
#include "fuzz/mutation/xmlmutator.h"

extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed)
{
    return fuzz::mutateMostly(fuzz::mutateXml, data, size, greatest, seed);
}
