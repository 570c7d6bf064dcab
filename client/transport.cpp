#include "client/answerguard.h"
#include "client/interface.h"
#include "common/exceptions.h"
#include "common/host/services.h"
#include "common/names.h"
#include <log4qt/logger.h>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Blanks that each level of a request is indented by.
constexpr int indent = 1;

/// Fills the document, or says where and why the answer cannot be read.
std::optional<AnswerDefect> parse(const QByteArray &answer, QDomDocument &document)
{
    if (auto defect = findDefect(answer))
        return defect;
    AnswerDefect defect;
    if (document.setContent(answer, &defect.text, &defect.line, &defect.column))
        return std::nullopt;
    return defect;
}

} // namespace

QDomDocument Interface::sendRequest(const QDomDocument &request, int timeout) const
{
    const auto client = MockFactory<RestClient>::create();
    client->setTimeout(timeout);
    client->setLogger(m_logger);
    client->post(m_url, request.toByteArray(indent), formXmlRequestHeaders());
    if (client->errorCode() > RestClient::None) {
        const tr::Tr message = client->errorMessage();
        m_logger->error(u"Произошла ошибка при выполнении запроса: '%1'"_s.arg(message.ru()));
        throw KorvelNoConnectionException(message);
    }
    QDomDocument response;
    if (const auto defect = parse(client->responseBody(), response)) {
        m_logger->error(
            u"Не удалось интерпретировать ответ от сервера([%1, %2] %3)"_s.arg(defect->line)
                .arg(defect->column)
                .arg(defect->text));
        throw KorvelException(
            tr::Tr(u"requestIncorrectAnswer"_s, u"Некорректный ответ от сервера"_s));
    }
    return response;
}

void Interface::sendRequestOffline(const QDomDocument &request) const
{
    QMap<QString, QVariant> headers;
    const QHash<QString, QString> requestHeaders = formXmlRequestHeaders();
    for (auto header = requestHeaders.cbegin(); header != requestHeaders.cend(); ++header)
        headers.insert(header.key(), header.value());
    const QMap<QString, QVariant> message = {{u"url"_s, m_url.toString()}, {u"headers"_s, headers},
        {u"body"_s, request.toString(indent)}};
    Singleton<DBQueueBroker>::instance()->enqueue(korvel::queueName, message, u""_s);
}

} // namespace korvelLoyaltyOnline
