#pragma once

#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <memory>
#include <thread>

/// An HTTPS server on a free loopback port with a self-signed certificate of its own. It answers
/// every request with "ok", one connection after the other, on a thread of its own.
class TlsServer
{
public:
    enum class Manner
    {
        Answers,
        AsksForCertificate, ///< answers only who shows the server's own
        HangsUp ///< after the handshake
    };

    /// @param address that the certificate is made out to, an IP address.
    explicit TlsServer(
        Manner manner = Manner::Answers, const QString &address = QStringLiteral("127.0.0.1"));
    ~TlsServer();
    Q_DISABLE_COPY_MOVE(TlsServer)

    [[nodiscard]] QUrl url() const;
    /// The certificate and its key, in PEM.
    [[nodiscard]] QString certificateFile() const;
    [[nodiscard]] QString keyFile() const;

private:
    struct Private;

    void serve();

    QTemporaryDir m_folder;
    std::unique_ptr<Private> m_private;
    std::thread m_thread;
};
