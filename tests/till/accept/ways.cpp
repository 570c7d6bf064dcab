#include "tests/till/accept/ways.h"

#include "tests/till/accept/message.h"

#include <QMap>

#include <memory>

using namespace message;

namespace ways {

namespace {

/// Numbers of cheques in the order in which they are first seen, and what was answered then.
struct Seen
{
    QMap<QByteArray, HttpMessage> answers; ///< by number and positions
    QMap<QByteArray, QByteArray> positions; ///< by number
};

QByteArray positionsOf(const QByteArray &request)
{
    QByteArray texts;
    for (int index = 0; index < positions(request); ++index)
        texts += valueOf(request, "Article", index) + ' ' + valueOf(request, "Quantity", index)
            + '\n';
    return texts;
}

} // namespace

QByteArray refusal(const QByteArray &code)
{
    return "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"><soap:Body>"
           "<ProcessRequestResponse xmlns=\"http://schemas.korvel.example/loyalty/processing\">"
           "<ProcessRequestResult><ChequeResponse><ReturnCode>"
        + code
        + "</ReturnCode><Message>no</Message></ChequeResponse></ProcessRequestResult>"
          "</ProcessRequestResponse></soap:Body></soap:Envelope>";
}

QByteArray fault()
{
    return "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\"><soap:Body>"
           "<soap:Fault><faultcode>soap:Server</faultcode><faultstring>no</faultstring>"
           "</soap:Fault></soap:Body></soap:Envelope>";
}

std::function<Change()> answers(const Condition &condition, const Edit &edit)
{
    return [=]() -> Change {
        return [=](const QByteArray &request, const Ask &ask) {
            HttpMessage answer = ask(request);
            if (condition(request))
                answer.body = edit(answer.body);
            return answer;
        };
    };
}

std::function<Change()> requests(const Condition &condition, const Edit &edit)
{
    return [=]() -> Change {
        return [=](const QByteArray &request, const Ask &ask) {
            return ask(condition(request) ? edit(request) : request);
        };
    };
}

std::function<Change()> refusing(const Condition &condition, const QByteArray &code)
{
    return [=]() -> Change {
        return [=](const QByteArray &request, const Ask &ask) {
            return condition(request) ? HttpMessage{refusal(code)} : ask(request);
        };
    };
}

std::function<Change()> status(const Condition &condition, int status)
{
    return [=]() -> Change {
        return [=](const QByteArray &request, const Ask &ask) {
            HttpMessage answer = ask(request);
            if (condition(request))
                answer.status = status;
            return answer;
        };
    };
}

Edit setting(const QByteArray &name, const QByteArray &value, int index)
{
    return [=](const QByteArray &message) { return with(message, name, value, index); };
}

Edit adding(const QByteArray &name, double amount, int index)
{
    return [=](const QByteArray &message) {
        const double value = valueOf(message, name, index).toDouble() + amount;
        return with(message, name, QByteArray::number(value, 'f', 2), index);
    };
}

Edit both(const Edit &one, const Edit &other)
{
    return [=](const QByteArray &message) { return other(one(message)); };
}

Edit replacingCode(const QByteArray &from, const QByteArray &to)
{
    return [=](const QByteArray &message) {
        return valueOf(message, "ReturnCode") == from ? with(message, "ReturnCode", to) : message;
    };
}

std::function<Change()> onlyThe(
    int count, const Condition &condition, const std::function<Change()> &change)
{
    return [=]() -> Change {
        return [=, seen = std::make_shared<int>(0), wrong = change()](
                   const QByteArray &request, const Ask &ask) {
            const bool isMeant = condition(request) && ++*seen == count;
            return isMeant ? wrong(request, ask) : ask(request);
        };
    };
}

std::function<Change()> repeats(
    const Condition &condition, bool withSamePositions, const OnRepeat &act)
{
    return [=]() -> Change {
        return [=, seen = std::make_shared<Seen>(), isOver = std::make_shared<bool>(false)](
                   const QByteArray &request, const Ask &ask) {
            if (!condition(request) || *isOver)
                return ask(request);
            const QByteArray number = valueOf(request, "Number");
            const bool isKnown = seen->positions.contains(number);
            const bool isSame = isKnown && seen->positions[number] == positionsOf(request);
            if (isKnown && isSame == withSamePositions) {
                *isOver = true;
                return act(request, seen->answers[number], ask);
            }
            const HttpMessage answer = ask(request);
            if (!isKnown && valueOf(answer.body, "ReturnCode") == "0") {
                seen->positions[number] = positionsOf(request);
                seen->answers[number] = answer;
            }
            return answer;
        };
    };
}

QByteArray underAnotherNumber(const QByteArray &request)
{
    return with(request, "Number", '9' + valueOf(request, "Number"));
}

HttpMessage refusedRepeat(const QByteArray &, const HttpMessage &, const Ask &)
{
    return {refusal("83000")};
}

HttpMessage bookedTwice(const QByteArray &request, const HttpMessage &earlier, const Ask &ask)
{
    ask(underAnotherNumber(request));
    return earlier;
}

HttpMessage takenAsAnother(const QByteArray &request, const HttpMessage &, const Ask &ask)
{
    return ask(underAnotherNumber(request));
}

} // namespace ways
