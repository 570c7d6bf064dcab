#pragma once

#include "tests/faults/fault.h"

#include <QByteArray>

namespace faults {

/// What comes in an answer's place, made of the answer that the service gave.
/// @param kind   of the group `Content`, or `OtherAnswer`.
/// @param answer the body; a balance's or a cheque's.
/// @throws std::runtime_error where a sample is missing, or nothing could be changed.
QByteArray spoilt(Kind kind, const QByteArray &answer);

} // namespace faults
