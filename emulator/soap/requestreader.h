#pragma once

#include "emulator/soap/request.h"
#include "emulator/soap/schema.h"

#include <QByteArray>

namespace emulator {

/// Bytes of a POST in, a request out. Throws RequestError with one line for the sender when
/// the bytes are not XML, do not fit the schema, or break a rule that the schema cannot express:
/// the form and the cheque type must belong to the operation type, a sale's discount is a finite
/// amount, prices, quantities and points are not negative, position numbers differ.
Request readRequest(const QByteArray &bytes, const MessageSchema &schema);

} // namespace emulator
