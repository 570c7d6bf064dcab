#pragma once

#include "tests/restart/socket.h"

#include <QByteArray>
#include <QUrl>

#include <functional>
#include <thread>

/// What goes over HTTP in one direction.
struct HttpMessage
{
    QByteArray body;
    int status = 200; ///< of an answer; 0: the connection is closed without one
};

/// A service that is right but for one thing: it passes on what a till and a real service say to
/// each other, one exchange after the other on a thread of its own, and changes it on the way.
class WrongService
{
public:
    /// Asks the real service.
    using Ask = std::function<HttpMessage(const QByteArray &request)>;
    /// What is answered to a request.
    using Change = std::function<HttpMessage(const QByteArray &request, const Ask &ask)>;

    WrongService(const QUrl &realService, Change change);
    ~WrongService();
    Q_DISABLE_COPY_MOVE(WrongService)

    [[nodiscard]] QUrl url() const;

private:
    void serve() const;
    void serveConnection(const restart::Socket &till) const;

    const quint16 m_servicePort;
    const Change m_change;
    restart::Socket m_listener;
    std::thread m_thread;
};
