#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Changes one element of a document: its text, its name, its place, or whether it is there at all,
/// so that inputs stay XML and reach what lies behind the parser. A `Mutator`.
std::size_t mutateXml(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);

} // namespace fuzz
