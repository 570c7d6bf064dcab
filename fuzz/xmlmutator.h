#pragma once

#include <cstddef>
#include <cstdint>

/// Changes one element of a document: its text, its name, its place, or whether it is there at all,
/// so that inputs stay XML and reach what lies behind the parser. Returns the new size, 0 when the
/// bytes are no XML or the result would exceed `greatest`; they are unchanged then. The seed
/// decides what is done.
std::size_t mutateXml(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);
