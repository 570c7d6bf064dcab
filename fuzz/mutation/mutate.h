#pragma once

#include <cstddef>
#include <cstdint>

/// libFuzzer's own mutation, of any bytes; returns the new size. The program has it, and the
/// mutators, a library of their own, call it there.
extern "C" [[gnu::visibility("default")]] std::size_t LLVMFuzzerMutate(
    std::uint8_t *data, std::size_t size, std::size_t greatest);

namespace fuzz {

/// Changes an input so that it keeps its form. Returns the new size, 0 when the bytes have not that
/// form or the result would exceed `greatest`; they are unchanged then. The seed decides what is
/// done.
using Mutator = std::size_t (*)(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);

/// Mostly by the mutator, sometimes any bytes: the parser must be tried too. Every other time what
/// is changed is not the input but one that got past the parser, since of a corpus most did not.
std::size_t mutateMostly(
    Mutator mutator, std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);

} // namespace fuzz
