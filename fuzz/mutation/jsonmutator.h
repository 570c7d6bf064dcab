#pragma once

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>

namespace fuzz {

/// Changes one value of a JSON text: what it says, its name, its place, how often it is there;
/// mostly it keeps its kind, which strict readers ask for. A `Mutator`.
std::size_t mutateJson(
    std::uint8_t *data, std::size_t size, std::size_t greatest, unsigned int seed);

/// The same for a value that is parsed already; those inside it are changed, not it itself.
void mutateInside(nlohmann::ordered_json &value, unsigned int seed);

} // namespace fuzz
