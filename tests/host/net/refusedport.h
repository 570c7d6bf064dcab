#pragma once

#include <QUrl>

/// A loopback port that refuses connections: nobody listens on it, and nobody else can take it.
/// Later it may accept them; nobody answers there.
class RefusedPort
{
public:
    RefusedPort();
    ~RefusedPort();
    Q_DISABLE_COPY_MOVE(RefusedPort)

    void startAccepting();
    [[nodiscard]] QUrl url() const;

private:
    int m_socket = -1;
    quint16 m_port = 0;
};
