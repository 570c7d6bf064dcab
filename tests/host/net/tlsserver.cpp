#include "tests/host/net/tlsserver.h"

#include <QFile>

#include <netinet/in.h>
#include <openssl/pem.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <stdexcept>
#include <string_view>

namespace {

template <auto release> struct Release
{
    template <typename T> void operator()(T *object) const { release(object); }
};
using Key = std::unique_ptr<EVP_PKEY, Release<EVP_PKEY_free>>;
using Certificate = std::unique_ptr<X509, Release<X509_free>>;
using Context = std::unique_ptr<SSL_CTX, Release<SSL_CTX_free>>;
using Connection = std::unique_ptr<SSL, Release<SSL_free>>;
using File = std::unique_ptr<std::FILE, Release<std::fclose>>;

constexpr long ageSeconds = 3600;
constexpr int backlog = 16;
constexpr std::string_view answer = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\nok";

void require(bool done)
{
    if (!done)
        throw std::runtime_error("the TLS server cannot be set up");
}

void addExtension(X509 &certificate, int id, const QByteArray &value)
{
    X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, nullptr, id, value.constData());
    require(extension && X509_add_ext(&certificate, extension, -1) == 1);
    X509_EXTENSION_free(extension);
}

void setName(X509_NAME &name, std::string_view text)
{
    X509_NAME_add_entry_by_txt(&name, "CN", MBSTRING_ASC,
        reinterpret_cast<const unsigned char *>(text.data()), static_cast<int>(text.size()), -1, 0);
}

Certificate unsignedCertificate(
    EVP_PKEY &key, const QString &address, std::chrono::seconds lifetime)
{
    Certificate certificate(X509_new());
    X509_set_version(certificate.get(), X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -ageSeconds);
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), long{lifetime.count()});
    X509_set_pubkey(certificate.get(), &key);
    setName(*X509_get_subject_name(certificate.get()), "test");
    addExtension(*certificate, NID_subject_alt_name, "IP:" + address.toLatin1());
    return certificate;
}

Certificate selfSigned(EVP_PKEY &key, const QString &address, std::chrono::seconds lifetime)
{
    Certificate certificate = unsignedCertificate(key, address, lifetime);
    X509_set_issuer_name(certificate.get(), X509_get_subject_name(certificate.get()));
    addExtension(*certificate, NID_basic_constraints, "critical,CA:TRUE");
    require(X509_sign(certificate.get(), &key, EVP_sha256()) > 0);
    return certificate;
}

Certificate signedByAnother(EVP_PKEY &key, const QString &address, std::chrono::seconds lifetime)
{
    Certificate certificate = unsignedCertificate(key, address, lifetime);
    setName(*X509_get_issuer_name(certificate.get()), "another");
    const Key another(EVP_EC_gen("P-256"));
    require(X509_sign(certificate.get(), another.get(), EVP_sha256()) > 0);
    return certificate;
}

File opened(const QString &path)
{
    File file(std::fopen(QFile::encodeName(path).constData(), "w"));
    require(file != nullptr);
    return file;
}

} // namespace

struct TlsServer::Private
{
    int listener = -1;
    quint16 port = 0;
    Manner manner;
    Key key{EVP_EC_gen("P-256")};
    Certificate certificate;
    Context context;

    Private(Manner givenManner, const QString &address, std::chrono::seconds lifetime)
        : manner(givenManner)
        , certificate(manner == Manner::VouchedForByAnother
                  ? signedByAnother(*key, address, lifetime)
                  : selfSigned(*key, address, lifetime))
    {
        setUp();
    }

    /// With new keys for its tickets.
    void setUp()
    {
        context.reset(SSL_CTX_new(TLS_server_method()));
        require(SSL_CTX_use_certificate(context.get(), certificate.get()) == 1
            && SSL_CTX_use_PrivateKey(context.get(), key.get()) == 1);
        // Otherwise they go on their own in the middle of the client's part of a round trip.
        SSL_CTX_set_num_tickets(context.get(), 0);
        SSL_CTX_set_max_early_data(context.get(), SSL3_RT_MAX_PLAIN_LENGTH);
        constexpr std::array<unsigned char, 4> name{'t', 'e', 's', 't'};
        SSL_CTX_set_session_id_context(context.get(), name.data(), name.size());
        // With TLS 1.2 a refusal belongs to the handshake.
        if (manner == Manner::AsksForCertificate || manner == Manner::SpeaksTls12)
            SSL_CTX_set_max_proto_version(context.get(), TLS1_2_VERSION);
        if (manner == Manner::AsksForCertificate) {
            SSL_CTX_set_verify(
                context.get(), SSL_VERIFY_PEER | SSL_VERIFY_FAIL_IF_NO_PEER_CERT, nullptr);
            X509_STORE_add_cert(SSL_CTX_get_cert_store(context.get()), certificate.get());
        }
    }

    void listen()
    {
        listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        auto *const generic = reinterpret_cast<sockaddr *>(&address);
        socklen_t length = sizeof address;
        require(::bind(listener, generic, length) == 0 && ::listen(listener, backlog) == 0
            && ::getsockname(listener, generic, &length) == 0);
        port = ntohs(address.sin_port);
    }

    /// Reads all that a client sends in one record; the request of a test fits into one.
    [[nodiscard]] static QByteArray readRecord(SSL *connection)
    {
        QByteArray record(SSL3_RT_MAX_PLAIN_LENGTH, Qt::Uninitialized);
        const int count = SSL_read(connection, record.data(), static_cast<int>(record.size()));
        return record.left(qMax(count, 0));
    }
};

TlsServer::TlsServer(Manner manner, const QString &address, std::chrono::seconds lifetime)
    : m_private(std::make_unique<Private>(manner, address, lifetime))
{
    PEM_write_X509(opened(certificateFile()).get(), m_private->certificate.get());
    PEM_write_PrivateKey(
        opened(keyFile()).get(), m_private->key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    m_private->listen();
    m_thread = std::thread([this] { serve(); });
}

TlsServer::~TlsServer()
{
    ::shutdown(m_private->listener, SHUT_RDWR);
    m_thread.join();
    ::close(m_private->listener);
}

void TlsServer::serve()
{
    // OpenSSL writes to its socket so that a client that has gone would end the program.
    sigset_t brokenPipe;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, nullptr);
    for (;;) {
        const int socket = ::accept4(m_private->listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0)
            return;
        if (m_forgets.exchange(false))
            m_private->setUp();
        serveConnection(socket);
        ::close(socket);
    }
}

// A handshake that the client breaks off is no concern here.
void TlsServer::serveConnection(int socket)
{
    const Connection connection(SSL_new(m_private->context.get()));
    SSL_set_fd(connection.get(), socket);
    if (SSL_accept(connection.get()) != 1)
        return;
    Visit visit;
    visit.resumed = SSL_session_reused(connection.get()) == 1;
    visit.sentEarly = SSL_get_early_data_status(connection.get()) != SSL_EARLY_DATA_NOT_SENT;
    if (m_private->manner != Manner::HangsUp)
        visit.requests = Private::readRecord(connection.get()).count("POST ");
    {
        const std::lock_guard lock(m_mutex);
        m_visits.append(visit);
    }
    if (visit.requests == 0)
        return;
    SSL_new_session_ticket(connection.get());
    SSL_write(connection.get(), answer.data(), static_cast<int>(answer.size()));
    // Says no farewell, which could cross the client's, but keeps the session.
    SSL_set_quiet_shutdown(connection.get(), 1);
    SSL_shutdown(connection.get());
}

QList<TlsServer::Visit> TlsServer::visits() const
{
    const std::lock_guard lock(m_mutex);
    return m_visits;
}

QUrl TlsServer::url() const
{
    return QUrl(QStringLiteral("https://127.0.0.1:%1/").arg(m_private->port));
}

QString TlsServer::certificateFile() const
{
    return m_folder.filePath(QStringLiteral("certificate.pem"));
}

QString TlsServer::keyFile() const
{
    return m_folder.filePath(QStringLiteral("key.pem"));
}
