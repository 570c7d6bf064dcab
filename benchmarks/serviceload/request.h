#pragma once

#include <string>

namespace serviceload {

/// The bytes on the wire of a cheque of ten positions.
/// @param till counted from 0; has a card and a number of its own.
/// @param cheque its number.
/// @param isFiscal registered, otherwise only worked out.
std::string chequeRequest(int till, int cheque, bool isFiscal);

} // namespace serviceload
