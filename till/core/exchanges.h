#pragma once

#include "till/core/exchangelog.h"

#include <QtGlobal>

#include <functional>

namespace till {

/// Watches the exchanges that the plug-in and the queue make, by putting itself into the maker of
/// `RestClient` while it lives. One at a time; on the host's thread.
class Exchanges
{
public:
    /// @param onPost called before each exchange; may be empty.
    explicit Exchanges(std::function<void()> onPost = {});
    ~Exchanges();
    Q_DISABLE_COPY_MOVE(Exchanges)

    /// Whether the last exchange ended with a 2xx answer; false before the first one.
    [[nodiscard]] bool lastSucceeded() const { return m_lastSucceeded; }
    /// How many were begun so far.
    [[nodiscard]] int count() const { return m_count; }
    /// What went over the wire.
    [[nodiscard]] const ExchangeLog &log() const { return m_log; }

private:
    class WatchedClient;

    std::function<void()> m_onPost;
    int m_count = 0;
    bool m_lastSucceeded = false;
    ExchangeLog m_log;
};

} // namespace till
