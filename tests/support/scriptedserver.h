#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QUrl>

#include <atomic>
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
    /// Adds bytes behind which the connection is reset.
    void answerReset(const QByteArray &bytes);
    /// Adds an answer that never ends: the bytes at once, then one byte now and then until the
    /// client has gone.
    void answerDripping(const QByteArray &bytes);
    /// Adds an answer that never comes: the connection stays open until the client has gone.
    void answerNever();
    /// Resets every connection from now on as soon as the head of a request has come.
    void resetAfterHeads();
    /// Requests so far, in order.
    [[nodiscard]] QList<Request> requests() const;

private:
    /// What happens behind the bytes of an answer.
    enum class Ending
    {
        Close,
        Reset,
        Drip,
        Hold
    };
    struct Answer
    {
        QByteArray bytes;
        Ending ending = Ending::Close;
    };

    void add(const Answer &answer);
    void serve();
    void serveConnection(int connection);
    Answer nextAnswer(const Request &request);

    int m_listener = -1;
    quint16 m_port = 0;
    std::atomic<bool> m_resets = false;
    mutable std::mutex m_mutex;
    QList<Answer> m_answers;
    QList<Request> m_requests;
    std::thread m_thread;
};
