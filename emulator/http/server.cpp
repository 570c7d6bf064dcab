#include "emulator/http/server.h"

#include "emulator/http/session.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/signal_set.hpp>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace asio = boost::asio;
namespace ssl = boost::asio::ssl;
using boost::system::error_code;
using tcp = asio::ip::tcp;

namespace {

constexpr int onlyThread = 1;
constexpr std::chrono::milliseconds pauseAfterFailure{100};

std::string pathBytes(const QString &path)
{
    return path.toLocal8Bit().toStdString();
}

QString messageOf(const error_code &error)
{
    return QString::fromStdString(error.message());
}

std::optional<ssl::context> makeTls(const std::optional<TlsFiles> &files)
{
    if (!files)
        return {};
    ssl::context context(ssl::context::tls_server);
    context.set_options(
        ssl::context::default_workarounds | ssl::context::no_tlsv1 | ssl::context::no_tlsv1_1);
    error_code error;
    context.use_certificate_chain_file(pathBytes(files->certificate), error);
    if (error)
        throw ServerError(u"%1: no PEM certificate could be read from it: %2"_s.arg(
            files->certificate, messageOf(error)));
    context.use_private_key_file(pathBytes(files->key), ssl::context::pem, error);
    if (error)
        throw ServerError(
            u"%1: no PEM key that fits the certificate could be read from it: %2"_s.arg(
                files->key, messageOf(error)));
    return context;
}

tcp::endpoint endpointOf(const ListenAddress &address)
{
    const QString host = address.host == u"localhost" ? u"127.0.0.1"_s : address.host;
    error_code error;
    const auto ip = asio::ip::make_address(host.toStdString(), error);
    if (error)
        throw ServerError(
            u"\"%1\" is not an address to listen on; give one such as 127.0.0.1"_s.arg(
                address.host));
    return {ip, address.port};
}

void listenOn(tcp::acceptor &acceptor, const tcp::endpoint &endpoint)
{
    error_code error;
    acceptor.open(endpoint.protocol(), error);
    if (!error)
        acceptor.set_option(asio::socket_base::reuse_address(true), error);
    if (!error)
        acceptor.bind(endpoint, error);
    if (!error)
        acceptor.listen(asio::socket_base::max_listen_connections, error);
    if (error)
        throw ServerError(u"cannot listen on %1 port %2: %3"_s
                              .arg(QString::fromStdString(endpoint.address().to_string()))
                              .arg(endpoint.port())
                              .arg(messageOf(error)));
}

} // namespace

class Server::Private
{
public:
    Private(const ListenAddress &address, const std::optional<TlsFiles> &files, Callbacks given)
        : callbacks(std::move(given))
        , tls(makeTls(files))
        , acceptor(context)
        , signals(context, SIGTERM, SIGINT)
    {
        listenOn(acceptor, endpointOf(address));
        awaitSignal();
        accept();
    }

    void awaitSignal()
    {
        signals.async_wait([this](const error_code &error, int) {
            if (!error)
                endBySignal();
        });
    }

    void endBySignal()
    {
        if (isEnding || !callbacks.answersBeforeEnding || answersUnderWay == 0) {
            context.stop();
            return;
        }
        isEnding = true;
        closeListener();
        awaitSignal();
    }

    void onAnswered()
    {
        --answersUnderWay;
        if (isEnding && answersUnderWay == 0)
            context.stop();
    }

    void accept()
    {
        acceptor.async_accept([this](const error_code &error, tcp::socket socket) {
            if (!acceptor.is_open())
                return;
            if (error) {
                acceptLater();
                return;
            }
            const Reception reception = callbacks.receive();
            if (reception.kind != Reception::Kind::Refuse)
                serve(std::move(socket), reception);
            accept();
        });
    }

    // No more file descriptors, most likely; asking again at once would only burn the processor.
    void acceptLater()
    {
        pause.expires_after(pauseAfterFailure);
        pause.async_wait([this](const error_code &error) {
            if (!error && acceptor.is_open())
                accept();
        });
    }

    void serve(tcp::socket socket, const Reception &reception)
    {
        using Plain = boost::beast::tcp_stream;
        using Secure = boost::beast::ssl_stream<boost::beast::tcp_stream>;
        if (tls)
            std::make_shared<Session<Secure>>(Secure(Plain(std::move(socket)), *tls), host)
                ->start(reception);
        else
            std::make_shared<Session<Plain>>(Plain(std::move(socket)), host)->start(reception);
    }

    void closeListener()
    {
        error_code ignored;
        acceptor.close(ignored);
    }

    const Callbacks callbacks;
    int answersUnderWay = 0;
    bool isEnding = false;
    const SessionHost host{callbacks, [this] { closeListener(); }, [this] { context.stop(); },
        [this] { ++answersUnderWay; }, [this] { onAnswered(); }};
    std::optional<ssl::context> tls;
    asio::io_context context{onlyThread};
    tcp::acceptor acceptor;
    asio::steady_timer pause{context};
    asio::signal_set signals;
};

Server::Server(
    const ListenAddress &address, const std::optional<TlsFiles> &tls, Callbacks callbacks)
    : m_private(std::make_unique<Private>(address, tls, std::move(callbacks)))
{ }

Server::~Server() = default;

QString Server::url() const
{
    const tcp::endpoint endpoint = m_private->acceptor.local_endpoint();
    const QString address = QString::fromStdString(endpoint.address().to_string());
    return u"%1://%2:%3/"_s
        .arg(m_private->tls ? u"https"_s : u"http"_s,
            endpoint.address().is_v6() ? u'[' + address + u']' : address)
        .arg(endpoint.port());
}

void Server::run()
{
    m_private->context.run();
}

} // namespace emulator
