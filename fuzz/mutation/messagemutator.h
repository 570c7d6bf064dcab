#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Changes one value of a queue's message as it stands in a file, and puts its checksum right,
/// which no mutation would guess. A `Mutator`.
std::size_t mutateMessage(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);

} // namespace fuzz
