#pragma once

#include "emulator/http/server.h"
#include "emulator/http/wire.h"

#include <boost/asio/dispatch.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/ssl.hpp>

#include <algorithm>
#include <chrono>
#include <memory>
#include <type_traits>

namespace emulator {

/// What a session needs of the server that it belongs to; outlives it.
struct SessionHost
{
    const Server::Callbacks &callbacks;
    std::function<void()> closeListener;
    std::function<void()> end;
    std::function<void()> onAsked; ///< a request has come that is to be answered
    std::function<void()> onAnswered; ///< its answer is on its way, or it will get none
};

/// One connection from its first byte to its last: handshake where the stream has TLS, one
/// request, its answer as ordered, then the rest of what the client may still send is read away so
/// that closing does not destroy the answer on its way. Keeps itself alive while it waits.
template <typename Stream> class Session : public std::enable_shared_from_this<Session<Stream>>
{
    using Error = boost::beast::error_code;
    static constexpr bool isTls = !std::is_same_v<Stream, boost::beast::tcp_stream>;

public:
    Session(Stream stream, const SessionHost &host)
        : m_stream(std::move(stream))
        , m_host(host)
        , m_timer(m_stream.get_executor())
    {
        m_parser.body_limit(greatestBody);
    }

    void start(const Reception &reception)
    {
        if (reception.kind == Reception::Kind::Silence) {
            socketStream().expires_after(longestSilence);
            readAway();
            return;
        }
        wait(reception.pause, [](Session &session) { session.begin(); });
    }

private:
    static constexpr std::uint64_t greatestBody = std::uint64_t{16} * 1024 * 1024;
    static constexpr std::chrono::seconds timeToRead{30};
    static constexpr std::chrono::seconds timeToDrain{2};
    static constexpr std::chrono::minutes longestSilence{10};
    static constexpr std::chrono::milliseconds timeBetweenPieces{50};
    static constexpr std::chrono::milliseconds timeBetweenEvents{100};
    // Tells whether the client is still there, and keeps what is between awake.
    static constexpr int looksBetweenSigns = 100;
    static constexpr std::size_t drainPiece = std::size_t{64} * 1024;

    auto &socketStream() { return boost::beast::get_lowest_layer(m_stream); }

    void limitTime() { socketStream().expires_after(timeToRead); }

    /// Goes on after a while, at once after none.
    template <typename Next> void wait(std::chrono::milliseconds time, Next next)
    {
        if (time.count() == 0) {
            next(*this);
            return;
        }
        socketStream().expires_never();
        m_timer.expires_after(time);
        m_timer.async_wait([self = this->shared_from_this(), next](Error error) {
            if (!error)
                next(*self);
        });
    }

    void begin()
    {
        limitTime();
        if constexpr (isTls) {
            m_stream.async_handshake(boost::asio::ssl::stream_base::server,
                [self = this->shared_from_this()](Error error) {
                    if (!error)
                        self->readHead();
                });
        } else {
            readHead();
        }
    }

    void readHead()
    {
        boost::beast::http::async_read_header(m_stream, m_buffer, m_parser,
            [self = this->shared_from_this()](Error error, std::size_t) {
                if (error)
                    self->onUnreadable(error);
                else
                    self->onHead();
            });
    }

    void onHead()
    {
        const auto expect = m_parser.get()[boost::beast::http::field::expect];
        if (!boost::beast::iequals(expect, "100-continue")) {
            readBody();
            return;
        }
        m_bytes = "HTTP/1.1 100 Continue\r\n\r\n";
        boost::asio::async_write(m_stream, boost::asio::buffer(m_bytes),
            [self = this->shared_from_this()](Error error, std::size_t) {
                if (!error)
                    self->readBody();
            });
    }

    void readBody()
    {
        boost::beast::http::async_read(m_stream, m_buffer, m_parser,
            [self = this->shared_from_this()](Error error, std::size_t) {
                if (error)
                    self->onUnreadable(error);
                else
                    self->onRequest();
            });
    }

    void onUnreadable(Error error)
    {
        // A client that is gone or silent gets no answer; one that talks nonsense does.
        const bool isNonsense = error.category()
            == boost::beast::http::make_error_code(boost::beast::http::error::bad_method)
                   .category();
        const bool isGone = error == boost::beast::http::error::end_of_stream
            || error == boost::beast::http::error::partial_message;
        if (isNonsense && !isGone)
            deliver(replyToUnreadable(error));
    }

    void onRequest()
    {
        Error ignored;
        const auto peer = socketStream().socket().remote_endpoint(ignored);
        const bool fromLoopback = !ignored && peer.address().is_loopback();
        HttpRequest request = requestFrom(m_parser.get(), fromLoopback);
        request.overTls = isTls;
        m_isAsked = true;
        m_host.onAsked();
        m_host.callbacks.answer(request, [self = this->shared_from_this()](const HttpReply &reply) {
            // At once on the server's own thread, in its turn from any other.
            boost::asio::dispatch(
                self->m_stream.get_executor(), [self, reply] { self->deliver(reply); });
        });
    }

    void deliver(HttpReply reply)
    {
        m_reply = std::move(reply);
        if (m_reply.endsService)
            m_host.closeListener();
        wait(m_reply.delay, [](Session &session) { session.send(); });
    }

    void send()
    {
        if (m_reply.delivery == Delivery::Reset || m_reply.delivery == Delivery::Nothing) {
            close();
            return;
        }
        m_bytes = bytesOf(m_reply);
        if (m_reply.delivery == Delivery::Drip) {
            sendPiece();
            return;
        }
        limitTime();
        boost::asio::async_write(m_stream, boost::asio::buffer(m_bytes),
            [self = this->shared_from_this()](Error error, std::size_t) {
                if (!error && self->m_reply.events)
                    self->tellNext();
                else
                    self->onSent(error);
            });
    }

    // So many pieces that the pauses between them come to the time that was asked for.
    void sendPiece()
    {
        const auto pauses = std::clamp<std::size_t>(
            static_cast<std::size_t>(m_reply.dripTime / timeBetweenPieces), 1, m_bytes.size());
        const std::size_t size
            = std::min(m_bytes.size() / (pauses + 1) + 1, m_bytes.size() - m_sent);
        limitTime();
        boost::asio::async_write(m_stream, boost::asio::buffer(m_bytes.data() + m_sent, size),
            [self = this->shared_from_this(), pauses](Error error, std::size_t sent) {
                self->m_sent += sent;
                if (error || self->m_sent == self->m_bytes.size())
                    self->onSent(error);
                else
                    self->wait(self->m_reply.dripTime / pauses,
                        [](Session &session) { session.sendPiece(); });
            });
    }

    void tellNext()
    {
        m_bytes = m_reply.events->next().toStdString();
        if (m_bytes.empty() && ++m_looksInVain < looksBetweenSigns) {
            wait(timeBetweenEvents, [](Session &session) { session.tellNext(); });
            return;
        }
        if (m_bytes.empty())
            m_bytes = ":\n\n";
        m_looksInVain = 0;
        limitTime();
        boost::asio::async_write(m_stream, boost::asio::buffer(m_bytes),
            [self = this->shared_from_this()](Error error, std::size_t) {
                if (!error)
                    self->wait(timeBetweenEvents, [](Session &session) { session.tellNext(); });
            });
    }

    void onSent(Error error)
    {
        // Without TLS's own goodbye the client of a cut answer sees that it was cut.
        if constexpr (isTls) {
            if (!error && m_reply.delivery == Delivery::Whole) {
                m_stream.async_shutdown(
                    [self = this->shared_from_this()](Error) { self->drain(); });
                return;
            }
        }
        drain();
    }

    void drain()
    {
        if (m_reply.endsService) {
            m_host.end();
            return;
        }
        Error ignored;
        socketStream().socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, ignored);
        tellAnswered();
        socketStream().expires_after(timeToDrain);
        readAway();
    }

    void readAway()
    {
        m_rest.resize(drainPiece);
        socketStream().async_read_some(boost::asio::buffer(m_rest),
            [self = this->shared_from_this()](Error error, std::size_t) {
                if (!error)
                    self->readAway();
            });
    }

    void close()
    {
        Error ignored;
        if (m_reply.delivery == Delivery::Reset)
            socketStream().socket().set_option(boost::asio::socket_base::linger(true, 0), ignored);
        socketStream().socket().close(ignored);
        tellAnswered();
    }

    void tellAnswered()
    {
        if (m_isAsked)
            m_host.onAnswered();
    }

    Stream m_stream;
    const SessionHost &m_host;
    boost::asio::steady_timer m_timer;
    boost::beast::flat_buffer m_buffer;
    HttpParser m_parser;
    HttpReply m_reply;
    bool m_isAsked = false; ///< unlike a message that could not be read
    std::string m_bytes;
    std::size_t m_sent = 0; ///< of m_bytes, where they go piece by piece
    int m_looksInVain = 0; ///< for events, since the client was last sent something
    std::string m_rest;
};

} // namespace emulator
