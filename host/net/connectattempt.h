#pragma once

#include "host/export.h"
#include "host/net/exchangesettings.h"

#include <QUrl>

#include <stop_token>

/// Whether a connection to the server of that address can be made: through the proxy and with TLS
/// where an exchange would use them, but nothing is sent. Blocks for a few seconds at most, and
/// returns early when asked to stop.
[[nodiscard]] POSHOST_EXPORT bool canConnect(
    const QUrl &url, const ExchangeSettings &settings, const std::stop_token &stop);
