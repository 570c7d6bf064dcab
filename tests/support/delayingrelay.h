#pragma once

#include <QList>
#include <QtGlobal>

#include <chrono>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

/// A long line: passes on what client and server say, each way that much later, and counts the
/// round trips. On a free loopback port, any number of connections at once, on threads of its own.
///
/// The system sets a connection up before a program sees it. What the client says first is
/// therefore late by a round trip more, so that everything comes when it would if the set-up had
/// taken the long line too.
class DelayingRelay
{
public:
    /// @param serverPort of the loopback address.
    /// @param oneWay     0: as fast as it goes.
    explicit DelayingRelay(quint16 serverPort, std::chrono::milliseconds oneWay = {});
    ~DelayingRelay();
    Q_DISABLE_COPY_MOVE(DelayingRelay)

    [[nodiscard]] quint16 port() const { return m_port; }
    /// Of each connection so far, in order: one to set it up, and one for each time that the server
    /// answered something.
    [[nodiscard]] QList<int> roundTrips() const;

private:
    void serve();
    void passOn(int client, qsizetype number);
    void noteRoundTrip(qsizetype number);

    const quint16 m_serverPort;
    const std::chrono::milliseconds m_oneWay;
    int m_listener = -1;
    int m_stop = -1; ///< can be read from when all is to end
    quint16 m_port = 0;
    mutable std::mutex m_mutex;
    QList<int> m_roundTrips;
    std::vector<std::jthread> m_connections;
    std::jthread m_thread;
};
