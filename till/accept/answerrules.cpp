#include "till/accept/answerrules.h"

#include "host/net/restclient.h"
#include "till/accept/flow.h"

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

const QString balanceAnswer = u"BalanceResponse"_s;
const QString chequeAnswer = u"ChequeResponse"_s;
constexpr int notEnoughPoints = 81400;

QString wantedKind(const Request &request)
{
    return nameOf(request.payload) == u"BalanceRequest" ? balanceAnswer : chequeAnswer;
}

AnswerVerdict verdictOnKind(const Answer &answer, const Request &request)
{
    const QString wanted = wantedKind(request);
    if (answer.kind() == wanted)
        return {everyanswer::kind, std::nullopt};
    return {everyanswer::kind, Shortfall{wanted, answer.kind()}};
}

AnswerVerdict verdictOnSchema(const Answer &answer, const MessageSchema &schema)
{
    const QString complaint = schema.complaintAbout(answer.body);
    if (complaint.isEmpty())
        return {everyanswer::schema, std::nullopt};
    return {everyanswer::schema, Shortfall{u"protocol/loyalty.xsd"_s, complaint}};
}

QString firstPrefixed(const QDomElement &element)
{
    if (!element.prefix().isEmpty())
        return element.prefix() + u':' + nameOf(element);
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        if (QString found = firstPrefixed(child); !found.isEmpty())
            return found;
    return {};
}

AnswerVerdict verdictOnPrefix(const Answer &answer)
{
    const QDomElement result = answer.payload.parentNode().toElement();
    const QString found = firstPrefixed(result.isNull() ? answer.payload : result);
    if (found.isEmpty())
        return {everyanswer::prefix, std::nullopt};
    return {everyanswer::prefix, Shortfall{found.section(u':', 1), found}};
}

std::optional<Shortfall> shortfallOfRefusal(const QDomElement &payload)
{
    for (QDomElement child = payload.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        if (nameOf(child) != u"ReturnCode" && nameOf(child) != u"Message")
            return Shortfall{u"ReturnCode, Message"_s, nameOf(child)};
    return std::nullopt;
}

AnswerVerdict verdictOnRefusal(const Answer &answer)
{
    const QList<QDomElement> codes = elementsAt(answer.payload, {u"ReturnCode"_s});
    const int code = codes.isEmpty() ? 0 : codes.first().text().toInt();
    const bool isRefusal = code > 0 && code != notEnoughPoints;
    return {everyanswer::refusal,
        isRefusal ? shortfallOfRefusal(answer.payload) : std::optional<Shortfall>()};
}

} // namespace

QList<AnswerVerdict> verdictsOn(
    const Answer &answer, const Request &request, const MessageSchema &schema)
{
    if (!answer.isThere())
        return {{everyanswer::comes, Shortfall{u"HTTP 200"_s, answer.errorText}}};
    QList<AnswerVerdict> verdicts{{everyanswer::comes, std::nullopt}};
    if (answer.error != RestClient::None) {
        verdicts.append({everyanswer::status,
            Shortfall{u"HTTP 200"_s, u"HTTP "_s + QString::number(answer.error)}});
        return verdicts;
    }
    verdicts.append({everyanswer::status, std::nullopt});
    verdicts.append(verdictOnSchema(answer, schema));
    if (answer.document.isNull())
        return verdicts;
    verdicts.append(verdictOnKind(answer, request));
    // A fault's elements are not the protocol's.
    if (answer.payload.isNull() || answer.kind() == u"Fault")
        return verdicts;
    verdicts.append(verdictOnPrefix(answer));
    verdicts.append(verdictOnRefusal(answer));
    return verdicts;
}

} // namespace till::accept
