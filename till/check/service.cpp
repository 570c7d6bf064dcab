#include "till/check/service.h"

#include "host/net/restclient.h"
#include "host/net/serverlook.h"
#include "till/check/balancerequest.h"
#include "till/check/rules.h"
#include "till/queue/credentials.h"

#include <QElapsedTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

const QString urlSetting = u"KorvelLoyaltyOnline:url"_s;
constexpr int firstStatus = 300;

Finding ofService(Severity severity, const tr::Tr &what, const tr::Tr &remedy = {})
{
    return {severity, Area::Service, {{}, 0, urlSetting}, what, remedy};
}

tr::Tr remedyFor(int error)
{
    switch (error) {
    case RestClient::NameNotResolved:
        return {u"checkName"_s, u"проверьте имя в KorvelLoyaltyOnline:url и сервер имён"_s};
    case RestClient::ConnectionRefused:
        return {u"checkPort"_s, u"проверьте адрес и порт, запущен ли сервис, и сетевой экран"_s};
    case RestClient::TlsFailed:
        return {u"checkTrust"_s,
            u"проверьте сертификат сервиса, RestClient:caFile и часы этой машины"_s};
    case RestClient::TimedOut:
        return {u"checkNetwork"_s, u"проверьте сеть и KorvelLoyaltyOnline:timeout"_s};
    default:
        return {u"checkAddress"_s, u"проверьте KorvelLoyaltyOnline:url и RestClient:proxy"_s};
    }
}

QString milliseconds(std::chrono::milliseconds time)
{
    return QString::number(time.count());
}

Findings connected(const ServerLook &look)
{
    const tr::Tr plain
        = tr::Tr(u"checkConnected"_s, u"есть связь с %1: имя %2 мс, соединение %3 мс"_s)
              .arg(look.address)
              .arg(milliseconds(look.name))
              .arg(milliseconds(look.connection));
    const bool hasTls = !look.certificates.isEmpty();
    Findings found{ofService(Severity::Ok,
        hasTls ? tr::Tr(u"checkConnectedTls"_s, u"%1, TLS %2 мс"_s)
                     .arg(plain)
                     .arg(milliseconds(look.tls))
               : plain)};
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (const Certificate &certificate : look.certificates)
        found += judgeEnd(
            certificate.subject, certificate.ends, now, Area::Service, {{}, 0, urlSetting});
    return found;
}

Exchanged exchange(const QUrl &url, const QByteArray &body, int seconds)
{
    Exchanged done;
    const auto client = MockFactory<RestClient>::create();
    client->setTimeout(seconds);
    QElapsedTimer timer;
    timer.start();
    client->post(url, body,
        {{u"Content-Type"_s, u"text/xml; charset=UTF-8"_s},
            {u"Authorization"_s, configuredAuthorization()}});
    done.took = std::chrono::milliseconds(timer.elapsed());
    done.received = QDateTime::currentDateTimeUtc();
    done.error = client->errorCode();
    done.errorText = client->errorMessage();
    done.body = done.error == RestClient::None ? client->responseBody() : client->failedBody();
    done.date = client->answerDate();
    return done;
}

} // namespace

Findings judgeService(const Effective &effective, const QString &card)
{
    const QUrl url(effective.text(urlSetting));
    const int seconds = static_cast<int>(effective.number(u"KorvelLoyaltyOnline:timeout"_s));
    const int usual = 15;
    const std::chrono::seconds limit(seconds > 0 ? seconds : usual);
    const ServerLook look = lookAtServer(url, limit);
    if (look.error != RestClient::None)
        return {ofService(Severity::Error,
            tr::Tr(u"checkNoConnection"_s, u"нет связи с %1: %2"_s)
                .arg(url.authority(QUrl::FullyEncoded).section(u'@', -1))
                .arg(look.detail),
            remedyFor(look.error))};
    const Exchanged done
        = exchange(url, card.isEmpty() ? emptyRequest() : balanceRequest(effective, card), seconds);
    Findings found = connected(look) + judgeAnswer(done, !card.isEmpty());
    if (done.error == RestClient::None || done.error >= firstStatus)
        found += judgeClock(done) + judgeTime(done, limit);
    return found;
}

Findings judgeClock(const Exchanged &exchanged)
{
    constexpr qint64 tolerated = 120;
    if (!exchanged.date.isValid())
        return {ofService(Severity::Note,
            {u"checkNoDate"_s, u"сервис не сообщает времени, часы не сверены"_s},
            {u"checkClockYourself"_s, u"сверьте часы этой машины сами"_s})};
    const qint64 seconds = exchanged.date.secsTo(exchanged.received);
    if (qAbs(seconds) <= tolerated)
        return {ofService(Severity::Ok,
            tr::Tr(u"checkClockGood"_s, u"часы сходятся с сервисом, разница %1 с"_s)
                .arg(QString::number(seconds)))};
    return {ofService(Severity::Warning,
        seconds > 0 ? tr::Tr(u"checkClockAhead"_s, u"часы спешат против сервиса на %1 с"_s)
                          .arg(QString::number(seconds))
                    : tr::Tr(u"checkClockBehind"_s, u"часы отстают от сервиса на %1 с"_s)
                          .arg(QString::number(-seconds)),
        {u"checkSetClock"_s,
            u"поставьте часы и включите их сверку (timedatectl): чеки уходят с этим временем"_s})};
}

Findings judgeTime(const Exchanged &exchanged, std::chrono::seconds limit)
{
    const bool isSlow = exchanged.took > limit / 2;
    return {ofService(isSlow ? Severity::Warning : Severity::Ok,
        tr::Tr(u"checkTook"_s, u"ответ занял %1 мс из %2 с"_s)
            .arg(milliseconds(exchanged.took))
            .arg(QString::number(limit.count())),
        isSlow ? tr::Tr(u"checkSlow"_s,
            u"ускорьте сеть или сервис, или увеличьте KorvelLoyaltyOnline:timeout"_s)
               : tr::Tr())};
}

} // namespace till::check
