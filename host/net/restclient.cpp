#include "host/net/restclient.h"

#include "host/net/breakers.h"
#include "host/net/connectattempt.h"
#include "host/net/exchange.h"
#include "host/net/restclientmessages.h"
#include <log4qt/logger.h>

#include <QElapsedTimer>

template class MockFactory<RestClient>;

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::chrono::seconds defaultLimit{15};
constexpr int firstServerFailure = 500;

bool isUsable(const QUrl &url)
{
    const QString scheme = url.scheme();
    return url.isValid() && (scheme == u"http"_s || scheme == u"https"_s) && !url.host().isEmpty();
}

QString withoutUser(const QUrl &url)
{
    return url.toString(QUrl::RemoveUserInfo | QUrl::FullyEncoded);
}

QString serverOf(const QUrl &url)
{
    return url.toString(QUrl::RemoveUserInfo | QUrl::RemovePath | QUrl::RemoveQuery
        | QUrl::RemoveFragment | QUrl::FullyEncoded);
}

// What the server refuses for what was asked says nothing about the server.
bool speaksAgainstServer(int error)
{
    const bool refused = error > RestClient::ExchangeFailed && error < firstServerFailure;
    return error != RestClient::None && !refused;
}

ExchangeOutcome guardedExchange(const ExchangeRequest &request)
{
    if (!isUsable(request.url))
        return {RestClient::BadAddress, {}, u"not an address of http or https"_s, {}};
    const ExchangeSettings settings = configuredExchangeSettings();
    if (!settings.breaker.isOn())
        return exchange(request, settings);

    Breakers &breakers = Breakers::instance();
    const QString server = serverOf(request.url);
    if (!breakers.admits(server))
        return {
            RestClient::BreakerOpen, {}, u"not tried, the exchanges before it had failed"_s, {}};
    ExchangeOutcome outcome = exchange(request, settings);
    if (speaksAgainstServer(outcome.error))
        // The probe's thread may be the last to hold the address: it gets one of its own.
        breakers.noteFailure(server, settings.breaker,
            [address = request.url.toEncoded(), settings](const std::stop_token &stop) {
                return canConnect(QUrl::fromEncoded(address), settings, stop);
            });
    else
        breakers.noteSuccess(server);
    return outcome;
}

} // namespace

RestClient::RestClient() = default;
RestClient::~RestClient() = default;

void RestClient::setTimeout(int seconds)
{
    m_timeoutSeconds = seconds;
}

void RestClient::setLogger(const Log4Qt::Logger *logger)
{
    m_logger = logger;
}

void RestClient::post(
    const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers)
{
    const auto limit = m_timeoutSeconds > 0 ? std::chrono::seconds(m_timeoutSeconds) : defaultLimit;
    QElapsedTimer timer;
    timer.start();
    const ExchangeOutcome outcome = guardedExchange({url, body, headers, limit});
    m_errorCode = outcome.error;
    m_errorMessage = restClientMessage(outcome.error, url, limit);
    m_responseBody = m_errorCode == None ? outcome.body : QByteArray();
    m_failedBody = m_errorCode == None ? QByteArray() : outcome.body;
    m_answerDate = outcome.date;
    log(url, body.size(), outcome.detail, timer.elapsed());
}

void RestClient::log(
    const QUrl &url, qsizetype sent, const QString &detail, qint64 milliseconds) const
{
    if (!m_logger)
        return;
    const QString what = u"POST %1, %2 bytes, %3 ms: %4"_s.arg(
        withoutUser(url), QString::number(sent), QString::number(milliseconds), detail);
    if (m_errorCode == None)
        m_logger->info(what);
    else
        m_logger->warn(u"%1 (error %2)"_s.arg(what, QString::number(m_errorCode)));
}

int RestClient::errorCode() const
{
    return m_errorCode;
}

tr::Tr RestClient::errorMessage() const
{
    return m_errorMessage;
}

QByteArray RestClient::responseBody() const
{
    return m_responseBody;
}

QByteArray RestClient::failedBody() const
{
    return m_failedBody;
}

QDateTime RestClient::answerDate() const
{
    return m_answerDate;
}
