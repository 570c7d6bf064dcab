#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Changes a line of a text, or one of its words: what it says, its place, how often it is there;
/// what was UTF-8 stays so. A `Mutator`.
std::size_t mutateLine(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);

} // namespace fuzz
