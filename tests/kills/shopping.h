#pragma once

#include "tests/kills/dice.h"

#include <QMap>
#include <QStringList>

#include <nlohmann/json.hpp>

#include <vector>

namespace kills {

using Json = nlohmann::json;

/// The commands of a sale, drawn by lot, its end included.
QStringList sale(Dice &dice);

/// How much there is of each position, by its number.
using Quantities = QMap<int, double>;

/// What is left of a sale behind its returns.
/// @param sale      as its file has it.
/// @param documents of the till, also others.
Quantities left(const Json &sale, const std::vector<Json> &documents);

/// The commands that follow `return NUMBER`: what comes back of what is left of the sale, and the
/// end.
/// @param document of the transcript, with everything that was sold.
/// @param left     of at least one position.
QStringList returned(Dice &dice, const Json &document, const Quantities &left);

} // namespace kills
