#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QUrl>

#include <mutex>
#include <thread>

/// An HTTP server on a free loopback port that answers what the test told it and hands back the
/// exact bytes it received. One connection after the other, each with one request, on a thread of
/// its own.
class ScriptedServer
{
public:
    struct Request
    {
        QByteArray requestLine;
        QMap<QByteArray, QByteArray> headers; ///< names in lower case
        QByteArray body;
    };

    ScriptedServer();
    ~ScriptedServer();
    Q_DISABLE_COPY_MOVE(ScriptedServer)

    [[nodiscard]] QUrl url() const;
    /// Adds an answer for the next request that has none yet; the last one is used for all that
    /// follow.
    void answer(const QByteArray &body, int status = 200);
    /// Adds bytes that are sent as they are, after which the connection is closed. Empty: closed at
    /// once.
    void answerRaw(const QByteArray &bytes);
    /// Requests so far, in order.
    [[nodiscard]] QList<Request> requests() const;

private:
    void serve();
    void serveConnection(int connection);

    int m_listener = -1;
    quint16 m_port = 0;
    mutable std::mutex m_mutex;
    QList<QByteArray> m_answers;
    QList<Request> m_requests;
    std::thread m_thread;
};
