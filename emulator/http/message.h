#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace emulator {

/// A request as far as the service looks at it.
struct HttpRequest
{
    QString method;
    QString target; ///< path and query, as sent
    QString host;
    QString origin; ///< empty unless a browser's page has sent it
    bool fromPage = false; ///< a browser has sent it for a page
    QByteArray token; ///< "X-Korvel-Token"
    QByteArray authorization;
    QByteArray body;
    bool fromLoopback = false;
    bool overTls = false;
    /// All of the head's, in order of arrival, byte for byte.
    std::vector<std::pair<QByteArray, QByteArray>> headers = {};
};

/// How an answer goes on the wire.
enum class Delivery
{
    Whole,
    Drip, ///< piece by piece, over `HttpReply::dripTime`
    Half, ///< the head and half of the body, then the connection is closed
    Nothing, ///< the connection is closed
    Reset ///< the connection is reset
};

/// What a connection meets before anything of it is read.
struct Reception
{
    enum class Kind
    {
        Serve,
        Refuse, ///< it is closed
        Silence ///< what it sends is read away and never answered
    };
    Kind kind = Kind::Serve;
    std::chrono::milliseconds pause{0}; ///< before it is served
};

/// What a client is told as it happens. One thread.
class EventSource
{
public:
    virtual ~EventSource();

    /// The next piece of "text/event-stream"; empty when there is nothing new. Must not throw.
    virtual QByteArray next() = 0;
};

struct HttpReply
{
    int status = 200;
    QByteArray contentType;
    QByteArray body;
    std::vector<std::pair<QByteArray, QByteArray>> headers = {};
    Delivery delivery = Delivery::Whole;
    std::chrono::milliseconds delay{0}; ///< before the answer is sent
    std::chrono::milliseconds dripTime{0}; ///< from its first byte to its last
    /// When set, its pieces follow the body until the client goes.
    std::shared_ptr<EventSource> events = {};
    bool endsService = false; ///< frees the port, sends the answer, then ends
};

/// Gives a request its answer: from any thread, at any time, once. It must not outlive the server.
using Respond = std::function<void(HttpReply)>;

HttpReply textReply(int status, const QString &text);

} // namespace emulator
