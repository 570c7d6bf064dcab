#pragma once

#include "emulator/http/message.h"

#include <optional>

namespace emulator {

/// What is answered to a request that no till has sent: 404 for the addresses of the service's API
/// and page, which do not exist here, 405 for anything but POST, 403 for a browser's page, which
/// could else reach the real service through this machine. Nothing for a till's request.
std::optional<HttpReply> replyToOthers(const HttpRequest &request);

} // namespace emulator
