#pragma once

#include <QByteArray>
#include <QUrl>

#include <thread>

/// An HTTP server that does as little as one can: on a free loopback port, one connection after the
/// other on a thread of its own, each with one POST, which is read and answered with the same body.
class PlainServer
{
public:
    explicit PlainServer(const QByteArray &answer);
    ~PlainServer();
    Q_DISABLE_COPY_MOVE(PlainServer)

    [[nodiscard]] QUrl url() const;

private:
    void serve() const;

    QByteArray m_bytes;
    int m_listener = -1;
    quint16 m_port = 0;
    std::thread m_thread;
};
