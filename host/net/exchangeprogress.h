#pragma once

#include "host/export.h"

#include <chrono>
#include <functional>

/// Is told how long the exchange that blocks the host's thread has taken.
using ExchangeProgress = std::function<void(std::chrono::milliseconds passed)>;

/// Sets who is told; an empty function: nobody. Told when an exchange begins, about once a second
/// while nothing comes, more often while bytes do, on the thread of the exchange. It must not throw
/// and not begin another exchange. To be set from the host's thread, not during an exchange.
POSHOST_EXPORT void setExchangeProgress(ExchangeProgress progress);
