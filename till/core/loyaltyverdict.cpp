#include "till/core/loyaltyverdict.h"

#include "host/config/config.h"
#include "host/net/restclient.h"

#include <QXmlStreamReader>

#include <optional>

using namespace Qt::StringLiterals;

namespace till {

namespace {

// Refusals that no repetition changes, whatever the settings say.
const QList<int> alwaysFinal{80241, 80420, 81330, 83000, 89184};

// The first return code of a well-formed answer.
std::optional<int> returnCode(const QByteArray &body)
{
    QXmlStreamReader reader(body);
    QString text;
    bool found = false;
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement && !found
            && reader.qualifiedName() == u"ReturnCode") {
            text = reader.readElementText(QXmlStreamReader::IncludeChildElements);
            found = true;
        }
    bool ok = false;
    const int code = text.trimmed().toInt(&ok);
    return ok && !reader.hasError() ? std::optional(code) : std::nullopt;
}

} // namespace

Verdict judgeLoyaltyAnswer(int errorCode, const QByteArray &body, const QList<int> &finalCodes)
{
    if (errorCode != RestClient::None)
        return {};
    const auto code = returnCode(body);
    if (!code)
        return {Verdict::Outcome::TryAgain, u"the answer is no XML with a ReturnCode"_s};
    if (*code <= 0)
        return {Verdict::Outcome::Delivered, {}};
    const bool final = alwaysFinal.contains(*code) || finalCodes.contains(*code);
    return {final ? Verdict::Outcome::Refused : Verdict::Outcome::TryAgain,
        u"the service answered with code %1"_s.arg(*code)};
}

void judgeLoyaltyMessages(DBQueueBroker &broker)
{
    const QList<int> finalCodes
        = Singleton<Config>::instance()->getIntList(u"KorvelLoyaltyOnline:errorsList"_s, {});
    broker.setVerdict(
        u"korvelloyaltyonline"_s, [finalCodes](int errorCode, const QByteArray &body) {
            return judgeLoyaltyAnswer(errorCode, body, finalCodes);
        });
}

} // namespace till
