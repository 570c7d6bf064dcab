#pragma once

#include "emulator/http/message.h"

#include <boost/beast/http.hpp>

#include <string>

namespace emulator {

using HttpParser = boost::beast::http::request_parser<boost::beast::http::string_body>;

/// The parts of a received message that the service looks at.
HttpRequest requestFrom(
    const boost::beast::http::request<boost::beast::http::string_body> &message, bool fromLoopback);

/// The bytes to send: the whole answer, or its head and half of its body.
std::string bytesOf(const HttpReply &reply);

/// The answer to a message that could not be read.
HttpReply replyToUnreadable(const boost::beast::error_code &error);

} // namespace emulator
