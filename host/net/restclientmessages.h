#pragma once

#include "host/framework/tr.h"

#include <QUrl>

#include <chrono>

/// What a cashier reads about a failed exchange. Empty for no error.
/// @param error one of `RestClient::Error` or an HTTP status.
/// @param limit that the exchange had.
[[nodiscard]] tr::Tr restClientMessage(int error, const QUrl &url, std::chrono::seconds limit);
