#include "till/core/loyaltyverdict.h"

#include "host/config/config.h"
#include "host/net/restclient.h"
#include "till/wire/readablemarkup.h"

#include <QStringList>
#include <QXmlStreamReader>

#include <optional>

using namespace Qt::StringLiterals;

namespace till {

namespace {

// Refusals that no repetition changes, whatever the settings say.
const QList<int> alwaysFinal{80241, 80420, 81330, 83000, 89184};

const QStringList answerElements{u"BalanceResponse"_s, u"ChequeResponse"_s};

// The first return code of a well-formed answer, where an element of the service's answers holds
// it. Elements with a prefix are not the service's.
std::optional<int> returnCode(const QByteArray &body)
{
    QXmlStreamReader reader(body);
    int answersAround = 0;
    std::optional<QString> text;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        const bool isAnswer = answerElements.contains(reader.qualifiedName());
        if (token == QXmlStreamReader::EndElement && isAnswer)
            --answersAround;
        if (token != QXmlStreamReader::StartElement)
            continue;
        answersAround += isAnswer ? 1 : 0;
        if (reader.qualifiedName() == u"ReturnCode" && !text) {
            const QString read = reader.readElementText(QXmlStreamReader::IncludeChildElements);
            text = answersAround > 0 ? read : QString();
        }
    }
    bool ok = false;
    const int code = text.value_or(QString()).trimmed().toInt(&ok);
    return ok && !reader.hasError() ? std::optional(code) : std::nullopt;
}

} // namespace

Verdict judgeLoyaltyAnswer(int errorCode, const QByteArray &body, const QList<int> &finalCodes)
{
    if (errorCode != RestClient::None)
        return {};
    const auto code = isReadableMarkup(body) ? returnCode(body) : std::nullopt;
    if (!code)
        return {Verdict::Outcome::TryAgain,
            u"the answer is not the service's: no ReturnCode in its XML"_s, 0};
    if (*code <= 0)
        return {Verdict::Outcome::Delivered, {}, *code};
    const bool final = alwaysFinal.contains(*code) || finalCodes.contains(*code);
    return {final ? Verdict::Outcome::Refused : Verdict::Outcome::TryAgain,
        u"the service answered with code %1"_s.arg(*code), *code};
}

void judgeLoyaltyMessages(DBQueueBroker &broker)
{
    const QList<int> finalCodes
        = Singleton<Config>::instance()->getIntList(u"KorvelLoyaltyOnline:errorsList"_s, {});
    broker.setVerdict(loyaltyQueue, [finalCodes](int errorCode, const QByteArray &body) {
        return judgeLoyaltyAnswer(errorCode, body, finalCodes);
    });
}

} // namespace till
