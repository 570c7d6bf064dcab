#pragma once

#include <QByteArray>

#include <nlohmann/json.hpp>

namespace emulator {

/// Reads JSON with comments. Throws DataError with line and column, both counted from 1, of a
/// syntax error and of a number that is too large.
nlohmann::json parseJson(const QByteArray &json);

} // namespace emulator
