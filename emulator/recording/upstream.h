#pragma once

#include "emulator/http/message.h"
#include "emulator/recording/upstreamaddress.h"

#include <atomic>

namespace emulator {

struct UpstreamSettings
{
    UpstreamAddress address;
    std::chrono::seconds limit{60}; ///< for a whole exchange
    QString caFile; ///< PEM; empty: the system's certificates
};

/// What came of a request that was passed on.
struct UpstreamAnswer
{
    QString failure; ///< why there is no whole answer; empty: there is one
    int status = 0; ///< this and the next two hold nothing after a failure
    QByteArray contentType;
    QByteArray body;
};

/// The way to the real service: a POST each on a connection of its own, sent once and never again,
/// without redirections; certificates are verified, and nothing comes from the environment.
/// Any thread.
class Upstream
{
public:
    /// Throws UpstreamError when the library for HTTP cannot be started.
    explicit Upstream(UpstreamSettings settings);

    /// Passes on the body, "Content-Type", "SOAPAction" and "Authorization", byte for byte. Blocks
    /// until the answer is there, the limit is over or `cancel` is called. Never throws but for
    /// memory.
    UpstreamAnswer forward(const HttpRequest &request) const;

    /// The "Authorization" that such a request is passed on with: its own, or that of the
    /// upstream's URL; empty for none.
    QByteArray authorizationFor(const HttpRequest &request) const;

    /// Cuts off what is under way, and everything that comes later.
    void cancel() { m_isCancelled = true; }

private:
    const UpstreamSettings m_settings;
    std::atomic<bool> m_isCancelled = false;
};

} // namespace emulator
