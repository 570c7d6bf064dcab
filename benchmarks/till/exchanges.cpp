// What an exchange with the service costs, beside libcurl with a fresh handle that sends and
// receives the same bytes. The server is a thread of this process, so real time counts.

#include "benchmarks/client/samples.h"
#include "benchmarks/till/plainserver.h"

#include "client/interface.h"
#include "common/host/services.h"
#include "tests/host/net/tlsserver.h"

#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <curl/curl.h>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace samples;

constexpr int indent = 1;
constexpr int limitSeconds = 15;

/// A server that answers the calculation of a cheque, the client that asks it, and the request.
class Scene
{
public:
    explicit Scene(int positions)
        : m_server(answerOf(positions))
    {
        Singleton<Config>::instance()->set(u"KorvelLoyaltyOnline:url"_s, url().toString());
        m_client = QSharedPointer<korvelLoyaltyOnline::Interface>::create();
        m_request = m_client->formSaleChequeRequest(chequeOf(positions), u"Soft"_s, {});
    }

    [[nodiscard]] QUrl url() const { return m_server.url(); }
    [[nodiscard]] const korvelLoyaltyOnline::Interface &client() const { return *m_client; }
    [[nodiscard]] const QDomDocument &request() const { return m_request; }

private:
    PlainServer m_server;
    QSharedPointer<korvelLoyaltyOnline::Interface> m_client;
    QDomDocument m_request;
};

void sendRequest(benchmark::State &state)
{
    const Scene scene(positionsOf(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.client().sendRequest(scene.request(), limitSeconds));
}

std::size_t append(const char *bytes, std::size_t, std::size_t count, void *answer)
{
    static_cast<QByteArray *>(answer)->append(bytes, static_cast<qsizetype>(count));
    return count;
}

curl_slist *headersOf(const korvelLoyaltyOnline::Interface &client)
{
    curl_slist *lines = curl_slist_append(nullptr, "Expect:");
    const auto headers = client.formXmlRequestHeaders();
    for (auto header = headers.cbegin(); header != headers.cend(); ++header)
        lines = curl_slist_append(
            lines, QString(header.key() + u": " + header.value()).toUtf8().constData());
    return lines;
}

QByteArray postWithFreshHandle(const QByteArray &url, const QByteArray &body, curl_slist *headers,
    const QByteArray &authorities = {})
{
    QByteArray answer;
    CURL *const handle = curl_easy_init();
    curl_easy_setopt(handle, CURLOPT_URL, url.constData());
    curl_easy_setopt(handle, CURLOPT_POSTFIELDS, body.constData());
    curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE, static_cast<long>(body.size()));
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &append);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &answer);
    if (!authorities.isEmpty())
        curl_easy_setopt(handle, CURLOPT_CAINFO, authorities.constData());
    curl_easy_perform(handle);
    curl_easy_cleanup(handle);
    return answer;
}

void sendAndParseByHand(benchmark::State &state)
{
    const Scene scene(positionsOf(state));
    const QByteArray url = scene.url().toEncoded();
    curl_slist *const headers = headersOf(scene.client());
    for (auto _ : state) {
        QDomDocument answer;
        answer.setContent(postWithFreshHandle(url, scene.request().toByteArray(indent), headers));
        benchmark::DoNotOptimize(answer);
    }
    curl_slist_free_all(headers);
}

void sendByHand(benchmark::State &state)
{
    const Scene scene(positionsOf(state));
    const QByteArray url = scene.url().toEncoded();
    const QByteArray body = scene.request().toByteArray(indent);
    curl_slist *const headers = headersOf(scene.client());
    for (auto _ : state)
        benchmark::DoNotOptimize(postWithFreshHandle(url, body, headers));
    curl_slist_free_all(headers);
}

/// The system's authorities and the server's certificate, which is none of theirs.
QByteArray authorities(const QTemporaryDir &folder, const TlsServer &server)
{
    const QString name = folder.filePath(u"authorities.pem"_s);
    QFile file(name);
    QFile system(QString::fromLocal8Bit(curl_version_info(CURLVERSION_NOW)->cainfo));
    QFile own(server.certificateFile());
    if (file.open(QIODevice::WriteOnly) && system.open(QIODevice::ReadOnly)
        && own.open(QIODevice::ReadOnly))
        file.write(system.readAll() + own.readAll());
    return QFile::encodeName(name);
}

void postWithTls(benchmark::State &state)
{
    const QTemporaryDir folder;
    const TlsServer server;
    Singleton<Config>::instance()->set(
        u"RestClient:caFile"_s, QFile::decodeName(authorities(folder, server)));
    const auto post = [&] {
        const auto client = MockFactory<RestClient>::create();
        client->post(server.url(), "<a/>", {});
        if (client->errorCode() != RestClient::None)
            state.SkipWithError("the exchange failed");
    };
    // The first of a till reads the authorities.
    post();
    for (auto _ : state)
        post();
    Singleton<Config>::reset();
}

void postWithTlsByHand(benchmark::State &state)
{
    const QTemporaryDir folder;
    const TlsServer server;
    const QByteArray url = server.url().toEncoded();
    const QByteArray file = authorities(folder, server);
    for (auto _ : state)
        benchmark::DoNotOptimize(postWithFreshHandle(url, "<a/>", nullptr, file));
}

void usePositions(benchmark::internal::Benchmark *cases)
{
    cases->Arg(10)->Arg(1000)->Unit(benchmark::kMicrosecond)->UseRealTime();
}

BENCHMARK(sendRequest)->Apply(usePositions);
BENCHMARK(sendAndParseByHand)->Apply(usePositions);
BENCHMARK(sendByHand)->Apply(usePositions);
BENCHMARK(postWithTls)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(postWithTlsByHand)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
