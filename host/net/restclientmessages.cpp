#include "host/net/restclientmessages.h"

#include "host/net/restclient.h"

#include <QMap>

using namespace Qt::Literals::StringLiterals;

namespace {

const QMap<int, tr::Tr> &messages()
{
    static const QMap<int, tr::Tr> map{
        {RestClient::BadAddress,
            {u"restClientBadAddress"_s, u"Неверный адрес сервера в настройках"_s}},
        {RestClient::ConnectionRefused,
            {u"restClientConnectionRefused"_s, u"Нет соединения с сервером %1"_s}},
        {RestClient::NameNotResolved, {u"restClientNameNotResolved"_s, u"Сервер %1 не найден"_s}},
        {RestClient::TlsFailed,
            {u"restClientTlsFailed"_s,
                u"Не удалось установить защищённое соединение с сервером %1"_s}},
        {RestClient::TimedOut, {u"restClientTimedOut"_s, u"Сервер %1 не ответил за %2 с"_s}},
        {RestClient::AnswerCut,
            {u"restClientAnswerCut"_s, u"Ответ сервера %1 получен не полностью"_s}},
        {RestClient::AnswerTooLarge,
            {u"restClientAnswerTooLarge"_s, u"Ответ сервера %1 слишком большой"_s}},
        {RestClient::BreakerOpen,
            {u"restClientBreakerOpen"_s, u"Сервер %1 временно недоступен, повторите позже"_s}},
    };
    return map;
}

QString hostAndPort(const QUrl &url)
{
    QUrl plain = url;
    plain.setUserInfo({});
    return plain.authority();
}

} // namespace

tr::Tr restClientMessage(int error, const QUrl &url, std::chrono::seconds limit)
{
    if (error == RestClient::None)
        return {};
    const QString server = hostAndPort(url);
    if (error > RestClient::ExchangeFailed)
        return tr::Tr(u"restClientHttpStatus"_s, u"Сервер %1 ответил ошибкой %2"_s)
            .arg(server)
            .arg(QString::number(error));
    tr::Tr message = messages().value(
        error, tr::Tr(u"restClientExchangeFailed"_s, u"Ошибка обмена с сервером %1"_s));
    if (error == RestClient::BadAddress)
        return message;
    const tr::Tr withServer = message.arg(server);
    return error == RestClient::TimedOut ? withServer.arg(QString::number(limit.count()))
                                         : withServer;
}
