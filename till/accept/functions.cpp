#include "till/accept/functions.h"

#include "host/documents/money.h"
#include "host/framework/currenttime.h"
#include "host/framework/mockfactory.h"

#include <QMap>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::accept::functions {

namespace {

const QString notEnoughPoints = u"81400"_s;

QStringList textsAt(const QString &path, const Dialogue &dialogue)
{
    QStringList texts;
    for (const QDomElement &element : elementsOf(path, dialogue))
        texts.append(element.text());
    return texts;
}

Value sum(const QString &path, const Dialogue &dialogue)
{
    double total = 0;
    for (const QString &text : textsAt(path, dialogue))
        total += text.toDouble();
    return amountValue(total);
}

Value count(const QString &path, const Dialogue &dialogue)
{
    return Value{QString::number(elementsOf(path, dialogue).size())};
}

Value listed(const QString &path, const Dialogue &dialogue)
{
    return Value{textsAt(path, dialogue).join(u", ")};
}

Value sorted(const QString &path, const Dialogue &dialogue)
{
    QStringList texts = textsAt(path, dialogue);
    std::sort(texts.begin(), texts.end(),
        [](const QString &one, const QString &other) { return one.toInt() < other.toInt(); });
    return Value{texts.join(u", ")};
}

double childNumber(const QDomElement &parent, const QString &name)
{
    const QList<QDomElement> children = elementsAt(parent, {name});
    return children.isEmpty() ? 0 : children.first().text().toDouble();
}

Value goods(const QString &step, const Dialogue &dialogue)
{
    double total = 0;
    for (const QDomElement &item : elementsOf(step + u".request.Item", dialogue))
        total += money::roundedToKopecks(
            childNumber(item, u"Price"_s) * childNumber(item, u"Quantity"_s));
    return amountValue(total);
}

Value answer(const QString &step, const Dialogue &dialogue)
{
    const Exchange *exchange = dialogue.find(step);
    return exchange ? Value{linesOf(exchange->answer.payload)} : Value{};
}

QString firstText(const QString &path, const Dialogue &dialogue)
{
    return textsAt(path, dialogue).value(0);
}

/// The points that the service took a calculation to ask for: those that it spent, or all of them
/// where it refuses because there are not so many.
Value wished(const QString &step, const Dialogue &dialogue)
{
    return firstText(step + u".ReturnCode", dialogue) == notEnoughPoints
        ? Value{firstText(step + u".request.PaidByBonus", dialogue)}
        : Value{firstText(step + u".WriteoffBonus", dialogue)};
}

using OfPath = Value (*)(const QString &path, const Dialogue &dialogue);

const QMap<QString, OfPath> &pathFunctions()
{
    static const QMap<QString, OfPath> map{{u"sum"_s, sum}, {u"count"_s, count},
        {u"listed"_s, listed}, {u"sorted"_s, sorted}, {u"goods"_s, goods}, {u"answer"_s, answer},
        {u"wished"_s, wished}};
    return map;
}

QDateTime now()
{
    return MockFactory<CurrentTime>::create()->currentDateTime();
}

Value least(const QList<Value> &values)
{
    double smallest = values.first().number().value_or(0);
    for (const Value &value : values)
        smallest = std::min(smallest, value.number().value_or(0));
    return amountValue(smallest);
}

/// The first that is there and not empty, otherwise the last.
Value either(const QList<Value> &values)
{
    for (const Value &value : values)
        if (value.isThere() && !value.text->isEmpty())
            return value;
    return values.last();
}

Value day(const Value &time)
{
    const qsizetype length = u"yyyy-MM-dd"_s.size();
    return time.isThere() ? Value{time.text->left(length)} : Value{};
}

/// Of the same length and kind, and another one.
Value wrong(const Value &code)
{
    QString other = code.text.value_or(QString());
    constexpr int digits = 10;
    for (QChar &sign : other)
        sign = sign.isDigit() ? QChar(u'0' + (sign.digitValue() + 1) % digits) : QChar(u'x');
    return Value{other};
}

qint64 whole(const Value &value)
{
    return static_cast<qint64>(value.number().value_or(0));
}

std::optional<Value> ofOne(const QString &name, const Value &argument, Dialogue &dialogue)
{
    if (name == u"day")
        return day(argument);
    if (name == u"today")
        return Value{now().addDays(whole(argument)).toString(u"yyyy-MM-dd")};
    if (name == u"moment")
        return Value{now().addSecs(whole(argument)).toString(u"yyyy-MM-ddTHH:mm:ss")};
    if (name == u"number")
        return Value{dialogue.number(argument.text.value_or(QString()))};
    if (name == u"wrong")
        return wrong(argument);
    return std::nullopt;
}

} // namespace

bool takesPath(const QString &name)
{
    return pathFunctions().contains(name);
}

Value ofPath(const QString &name, const QString &path, const Dialogue &dialogue)
{
    return pathFunctions().value(name)(path, dialogue);
}

std::optional<Value> ofValues(
    const QString &name, const QList<Value> &arguments, Dialogue &dialogue)
{
    if (name == u"min")
        return least(arguments);
    if (name == u"either")
        return either(arguments);
    return arguments.size() == 1 ? ofOne(name, arguments.first(), dialogue) : std::nullopt;
}

} // namespace till::accept::functions
