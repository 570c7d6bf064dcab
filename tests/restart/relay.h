#pragma once

#include "tests/restart/socket.h"

#include <QByteArray>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace restart {

/// When a till dies, seen from the exchange that it is in.
enum class Moment
{
    Asked, ///< the till has asked, the service knows nothing of it
    Acted, ///< the service has acted, the till has not seen its answer
    Answered ///< the answer is on its way to the till
};

/// Stands between a till and its service and passes on what they say, one exchange after the other,
/// on a thread of its own. It can be told to strike at one of the exchanges to come.
class Relay
{
public:
    /// @param servicePort of the loopback address; somebody need not listen there all the time.
    explicit Relay(quint16 servicePort);
    ~Relay();
    Q_DISABLE_COPY_MOVE(Relay)

    /// Where the till finds it.
    [[nodiscard]] quint16 port() const { return m_listener.port(); }
    /// Orders a strike; it replaces one that was ordered before and has not struck yet.
    /// @param exchange which of those that begin after this call, from 1.
    /// @param kill     ends the till; called once, on the relay's thread.
    void strikeAt(int exchange, Moment moment, std::function<void()> kill);
    /// Takes back what was ordered and has not struck yet, and waits for a strike that is under
    /// way.
    void forgetStrike();
    /// Calls this with each request that begins after this call, on the relay's thread, before
    /// anything else is done with it.
    void showRequestsTo(std::function<void(const QByteArray &)> witness);

private:
    struct Strike
    {
        int exchange = 0; ///< how many exchanges there are until then, from 1
        Moment moment = Moment::Asked;
        std::function<void()> kill;
    };

    void serve();
    void serveConnection(const Socket &till);
    static void passOn(const QByteArray &request, const Socket &till, const Socket &service);
    void strike(const Strike &strike, const QByteArray &request, const Socket &till) const;
    /// Counts an exchange; what was ordered for it.
    std::optional<Strike> takeStrike();
    void noteThatItStruck();
    void show(const QByteArray &request);

    const quint16 m_servicePort;
    Socket m_listener;
    std::mutex m_mutex;
    std::condition_variable m_struck;
    bool m_isStriking = false;
    std::optional<Strike> m_strike;
    std::function<void(const QByteArray &)> m_witness;
    std::thread m_thread;
};

} // namespace restart
