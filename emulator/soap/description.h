#pragma once

#include "emulator/http/message.h"

#include <optional>

namespace emulator {

/// What SOAP toolkits ask for before they call: the WSDL for GET of "/?wsdl", with the address
/// under which it was asked for, and the schema that it imports for GET of "/loyalty.xsd". Nothing
/// for any other request.
std::optional<HttpReply> describeService(const HttpRequest &request);

} // namespace emulator
