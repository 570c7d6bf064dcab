#pragma once

#include "emulator/soap/request.h"
#include "emulator/soap/schema.h"

#include <QByteArray>

namespace emulator {

/// Bytes of a POST in, a request out. Throws RequestError with one line for the sender when
/// the bytes are not XML, do not fit the schema, or break a rule that the schema cannot express:
/// the form and the cheque type must belong to the operation type, a sale's discount is a finite
/// amount, prices, quantities and points are not negative, position numbers differ, and all
/// positions together come to less than a million million.
Request readRequest(const QByteArray &bytes, const MessageSchema &schema);

/// The same for what the parser has read already.
Request readRequest(const XmlDocument &document, const MessageSchema &schema);

} // namespace emulator
