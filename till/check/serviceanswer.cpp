#include "host/net/restclient.h"
#include "till/check/answerschema.h"
#include "till/check/service.h"

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

constexpr int firstStatus = 300;
constexpr int unauthorised = 401;
constexpr int forbidden = 403;
constexpr int notFound = 404;
constexpr int methodNotAllowed = 405;
constexpr int proxyUnauthorised = 407;
constexpr int badGateway = 502;
constexpr int gatewayTimeout = 504;

Finding ofService(Severity severity, const tr::Tr &what, const tr::Tr &remedy = {})
{
    return {severity, Area::Service, {{}, 0, u"KorvelLoyaltyOnline:url"_s}, what, remedy};
}

/// What the status says by itself, whatever was asked; nothing where that depends.
Findings judgeStatus(const Exchanged &exchanged)
{
    const int error = exchanged.error;
    const QString status = QString::number(error);
    if (error == unauthorised || error == forbidden)
        return {ofService(Severity::Error,
            tr::Tr(u"checkUnauthorised"_s, u"сервис не принял пользователя и пароль (%1)"_s)
                .arg(status),
            {u"checkFixCredentials"_s, u"исправьте KorvelLoyaltyOnline:user и password"_s})};
    if (error == proxyUnauthorised)
        return {ofService(Severity::Error,
            {u"checkProxyUnauthorised"_s, u"прокси требует пользователя и пароль"_s},
            {u"checkFixProxy"_s, u"задайте их в RestClient:proxy: http://имя:пароль@прокси"_s})};
    if (error == notFound || error == methodNotAllowed)
        return {ofService(Severity::Error,
            tr::Tr(u"checkPathWrong"_s, u"по этому пути сервиса нет (%1)"_s).arg(status),
            {u"checkFixPath"_s, u"исправьте путь в KorvelLoyaltyOnline:url"_s})};
    if (error >= badGateway && error <= gatewayTimeout)
        return {ofService(Severity::Error,
            tr::Tr(u"checkUnavailable"_s, u"сервис сейчас недоступен (%1)"_s).arg(status),
            {u"checkAskService"_s, u"повторите позже или сообщите службе сервиса"_s})};
    if (error > RestClient::None && error < firstStatus)
        return {ofService(Severity::Error,
            tr::Tr(u"checkExchangeFailed"_s, u"обмен не удался: %1"_s).arg(exchanged.errorText),
            {u"checkAskService"_s, u"повторите позже или сообщите службе сервиса"_s})};
    return {};
}

tr::Tr otherService()
{
    return {u"checkOtherService"_s, u"проверьте, тот ли это адрес и та ли версия сервиса"_s};
}

Finding notSoap()
{
    return ofService(Severity::Error,
        {u"checkNotSoap"_s, u"ответ — не сообщение сервиса лояльности"_s}, otherService());
}

// An empty message is refused with a fault by a service that understood it.
Findings judgeEmpty(const ReadAnswer &read)
{
    if (!read.isEnvelope)
        return {notSoap()};
    return {ofService(Severity::Ok,
                {u"checkAccepted"_s, u"сервис отвечает и не отказывает в авторизации"_s}),
        ofService(Severity::Note, {u"checkNoCard"_s, u"запрос баланса не проверен"_s},
            {u"checkGiveCard"_s, u"укажите тестовую карту: --card НОМЕР"_s})};
}

tr::Tr fixNames()
{
    return {u"checkFixNames"_s,
        u"проверьте orgName, organization, businessUnit и pos со службой сервиса"_s};
}

// A fault with the status of a success, or what is no answer at all, as an echo of the request.
Finding withoutCode(const ReadAnswer &read)
{
    if (read.message.isEmpty())
        return notSoap();
    return ofService(Severity::Error,
        tr::Tr(u"checkFault"_s, u"сервис не принял запрос: %1"_s).arg(read.message), fixNames());
}

Findings judgeBalance(const Exchanged &exchanged, const ReadAnswer &read)
{
    if (!read.isEnvelope)
        return {notSoap()};
    if (exchanged.error >= firstStatus)
        return {ofService(Severity::Error,
            tr::Tr(u"checkRequestRefused"_s, u"сервис не принял запрос (%1): %2"_s)
                .arg(QString::number(exchanged.error))
                .arg(read.message),
            fixNames())};
    if (!read.complaint.isEmpty())
        return {ofService(Severity::Error,
            tr::Tr(u"checkAnswerInvalid"_s, u"ответ не по схеме: %1"_s).arg(read.complaint),
            otherService())};
    if (!read.returnCode)
        return {withoutCode(read)};
    if (*read.returnCode > 0)
        return {ofService(Severity::Warning,
            tr::Tr(u"checkCardRefused"_s, u"сервис отказал карте, код %1: %2"_s)
                .arg(QString::number(*read.returnCode))
                .arg(read.message),
            {u"checkOtherCard"_s, u"возьмите карту, которую сервис знает"_s})};
    return {
        ofService(Severity::Ok, {u"checkBalance"_s, u"баланс карты получен, ответ по схеме"_s})};
}

} // namespace

Findings judgeAnswer(const Exchanged &exchanged, bool hasCard)
{
    Findings byStatus = judgeStatus(exchanged);
    if (!byStatus.isEmpty())
        return byStatus;
    const ReadAnswer read = AnswerSchema().read(exchanged.body);
    return hasCard ? judgeBalance(exchanged, read) : judgeEmpty(read);
}

} // namespace till::check
