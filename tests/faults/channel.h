#pragma once

#include "tests/restart/socket.h"

#include <openssl/ssl.h>

#include <memory>

namespace faults {

/// A connection of a till, plain or with TLS.
class Channel
{
public:
    /// @param context of a server with TLS; null: plain. The handshake is part of it.
    Channel(restart::Socket socket, SSL_CTX *context);

    /// Whether the handshake has come to a good end, or none was wanted.
    [[nodiscard]] bool isOpen() const { return m_isOpen; }
    /// Appends what has come; whether something has.
    bool receive(QByteArray &bytes) const;
    /// Whether the peer took them.
    bool send(const QByteArray &bytes) const;
    /// Waits until the peer has gone, at most so long, for ever when negative; whether it has.
    [[nodiscard]] bool awaitEnd(int milliseconds) const;
    /// The peer sees a reset instead of an end when the object dies.
    void resetOnClose() const { m_socket.resetOnClose(); }

private:
    struct Release
    {
        void operator()(SSL *tls) const { SSL_free(tls); }
    };

    restart::Socket m_socket;
    std::unique_ptr<SSL, Release> m_tls;
    bool m_isOpen = true;
};

} // namespace faults
