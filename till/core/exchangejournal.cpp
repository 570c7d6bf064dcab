#include "till/core/exchangejournal.h"

#include "host/framework/session.h"
#include "host/storage/journal.h"
#include "till/wire/exchangefacts.h"

#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString stars = u"********"_s;

void put(QVariantMap &values, const QString &name, const std::optional<double> &amount)
{
    if (amount)
        values.insert(name, *amount);
}

void put(QVariantMap &values, const QString &name, const QString &text)
{
    if (!text.isEmpty())
        values.insert(name, text);
}

QString withoutCode(QString text, const QString &code)
{
    return code.isEmpty() ? text : text.replace(code, stars);
}

void putAnswer(QVariantMap &values, const AnswerFacts &answer)
{
    if (answer.returnCode)
        values.insert(u"returnCode"_s, *answer.returnCode);
    put(values, u"message"_s, withoutCode(answer.message, answer.verificationCode));
    put(values, u"transaction"_s, answer.transaction);
    put(values, u"available"_s, answer.available);
    put(values, u"earned"_s, answer.earned);
    put(values, u"charged"_s, answer.charged);
    put(values, u"spent"_s, answer.spent);
    put(values, u"balance"_s, answer.balance);
    if (!answer.verificationCode.isEmpty())
        values.insert(u"codeSent"_s, true);
}

} // namespace

void journalExchange(const ExchangeRecord &record)
{
    const auto document = Singleton<Session>::instance()->getCurrentDocument();
    const RequestFacts request = requestFacts(record.request);
    if (!document || (!request.number.isEmpty() && request.number != document->getNumber()))
        return;
    QVariantMap values{{u"operation"_s, operationName(request.operation)},
        {u"milliseconds"_s, static_cast<qint64>(record.duration.count())},
        {u"error"_s, record.error}};
    put(values, u"card"_s, request.card);
    put(values, u"sum"_s, request.sum);
    put(values, u"points"_s, request.points);
    if (record.error == 0)
        putAnswer(values, answerFacts(record.answer));
    else
        put(values, u"reason"_s, record.errorMessage.ru());
    Journal::append(u"exchange"_s, values);
}

} // namespace till
