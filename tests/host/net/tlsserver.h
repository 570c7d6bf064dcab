#pragma once

#include <QList>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

/// An HTTPS server on a free loopback port with a self-signed certificate of its own. It answers
/// every request with "ok", one connection after the other, on a thread of its own. It offers to
/// resume sessions, by tickets that go with the answer, and to take data before the handshake is
/// done.
class TlsServer
{
public:
    /// What came of a connection.
    struct Visit
    {
        bool resumed = false; ///< the session of an earlier one
        bool sentEarly = false; ///< something before the handshake was done
        qsizetype requests = 0;
    };

    enum class Manner
    {
        Answers,
        AsksForCertificate, ///< answers only who shows the server's own
        HangsUp, ///< after the handshake
        SpeaksTls12, ///< and nothing newer
        VouchedForByAnother ///< its certificate is not self-signed
    };

    /// @param address that the certificate is made out to, an IP address.
    /// @param lifetime of the certificate from now on; negative: it has run out.
    explicit TlsServer(Manner manner = Manner::Answers,
        const QString &address = QStringLiteral("127.0.0.1"),
        std::chrono::seconds lifetime = std::chrono::hours(1));
    ~TlsServer();
    Q_DISABLE_COPY_MOVE(TlsServer)

    [[nodiscard]] QUrl url() const;
    /// The certificate and its key, in PEM.
    [[nodiscard]] QString certificateFile() const;
    [[nodiscard]] QString keyFile() const;

    /// Connections whose handshake was done, in order.
    [[nodiscard]] QList<Visit> visits() const;
    /// Knows no session any more, as if it had been started again.
    void forgetSessions() { m_forgets = true; }

private:
    struct Private;

    void serve();
    void serveConnection(int socket);

    QTemporaryDir m_folder;
    std::unique_ptr<Private> m_private;
    std::atomic<bool> m_forgets = false;
    mutable std::mutex m_mutex;
    QList<Visit> m_visits;
    std::thread m_thread;
};
