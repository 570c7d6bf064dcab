#pragma once

#include "emulator/http/message.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>

namespace emulator {

/// The server cannot be started; `what()` is one line that names the address or file.
class ServerError : public std::runtime_error
{
public:
    explicit ServerError(const QString &message)
        : std::runtime_error(message.toStdString())
    { }
};

/// Where to listen; port 0: a free one.
struct ListenAddress
{
    QString host; ///< an address, or localhost
    quint16 port = 0;

    /// Reads "127.0.0.1:8080", "[::1]:0", "localhost:80". Throws ServerError.
    static ListenAddress parse(const QString &text);
};

/// PEM files of the certificate chain and its key.
struct TlsFiles
{
    QString certificate;
    QString key;
};

/// A small HTTP/1.1 server on one thread: one request a connection, answered in order of
/// arrival, bodies up to 16 MiB (413 above), half a minute for a client to get its request
/// through. While an answer is delayed or awaited others are served.
class Server
{
public:
    struct Callbacks
    {
        std::function<Reception()> receive; ///< asked for each connection, before reading
        /// Answers now or later; meanwhile others are served. Must not throw.
        std::function<void(const HttpRequest &, Respond)> answer;
        /// At a signal what was asked is still answered, and a second signal ends at once;
        /// otherwise the first does.
        bool answersBeforeEnding = false;
    };

    /// Listens from now on. Throws ServerError.
    Server(const ListenAddress &address, const std::optional<TlsFiles> &tls, Callbacks callbacks);
    ~Server();

    /// "http://127.0.0.1:40123/"
    QString url() const;

    /// Serves until a reply ends the service, or the process gets SIGTERM or SIGINT. Whoever still
    /// owes an answer then must be stopped before the server goes.
    void run();

private:
    class Private;
    std::unique_ptr<Private> m_private;
};

} // namespace emulator
