#pragma once

#include <QByteArray>
#include <QString>

/// A service on a free loopback port that takes one request and answers it only when it is told to.
class HoldingServer
{
public:
    HoldingServer();
    ~HoldingServer();
    Q_DISABLE_COPY_MOVE(HoldingServer)

    [[nodiscard]] QString url() const;
    /// Waits until a request is on its way here.
    void takeRequest();
    void answer(const QByteArray &body);

private:
    int m_listener;
    int m_connection = -1;
    int m_port = 0;
};
