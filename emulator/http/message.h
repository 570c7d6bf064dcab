#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>
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
    QByteArray authorization;
    QByteArray body;
    bool fromLoopback = false;
    bool overTls = false;
};

/// How an answer goes on the wire.
enum class Delivery
{
    Whole,
    Half, ///< the head and half of the body, then the connection is closed
    Nothing, ///< the connection is closed
    Reset ///< the connection is reset
};

struct HttpReply
{
    int status = 200;
    QByteArray contentType;
    QByteArray body;
    std::vector<std::pair<QByteArray, QByteArray>> headers = {};
    Delivery delivery = Delivery::Whole;
    std::chrono::milliseconds delay{0}; ///< before the answer is sent
    bool endsService = false; ///< frees the port, sends the answer, then ends
};

HttpReply textReply(int status, const QString &text);

} // namespace emulator
