#include "till/accept/comparison.h"

#include "host/documents/money.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

bool isAmount(const Value &value)
{
    return value.isComputed || value.text.value_or(QString()).contains(u'.');
}

// Numbers of cheques, cards and transactions are texts: they may be longer than a number can be.
bool areEqual(const Value &left, const Value &right, double within)
{
    if (left.text == right.text)
        return true;
    const auto one = left.number();
    const auto other = right.number();
    return one && other && (isAmount(left) || isAmount(right))
        && std::abs(*one - *other) < within + money::tolerance;
}

/// Dates of the form yyyy-MM-dd are in order as texts.
bool isAtMost(const Value &value, const Value &bound)
{
    const auto number = value.number();
    const auto most = bound.number();
    return number && most ? *number < *most + money::tolerance : *value.text <= *bound.text;
}

bool holds(const Comparison &comparison, const Value &left, const Value &right)
{
    if (!left.isThere() || !right.isThere())
        return false;
    switch (comparison.relation) {
    case Operator::Is:
        return areEqual(left, right, comparison.within);
    case Operator::IsNot:
        return !areEqual(left, right, comparison.within);
    case Operator::AtMost:
        return isAtMost(left, right);
    case Operator::AtLeast:
        return isAtMost(right, left);
    case Operator::Contains:
        return left.text->contains(*right.text);
    }
    return false;
}

QString signOf(Operator relation)
{
    switch (relation) {
    case Operator::Is:
        return u"="_s;
    case Operator::IsNot:
        return u"≠"_s;
    case Operator::AtMost:
        return u"≤"_s;
    case Operator::AtLeast:
        return u"≥"_s;
    case Operator::Contains:
        return u"∋"_s;
    }
    return {};
}

QString shown(const Value &value)
{
    if (!value.isThere())
        return u"–"_s;
    return value.text->isEmpty() ? u"\"\""_s : value.written();
}

/// Of two texts of many lines only the first two that differ.
void keepWhatDiffers(Value &left, Value &right)
{
    if (!left.isThere() || !right.isThere())
        return;
    QStringList ours = left.text->split(u'\n');
    QStringList theirs = right.text->split(u'\n');
    while (ours.size() > 1 && theirs.size() > 1 && ours.first() == theirs.first()) {
        ours.removeFirst();
        theirs.removeFirst();
    }
    left.text = ours.first();
    right.text = theirs.first();
}

std::optional<Shortfall> shortfallFor(
    const Comparison &comparison, Dialogue &dialogue, const Surroundings &surroundings)
{
    Value left = evaluate(comparison.that, dialogue, surroundings);
    Value right = evaluate(comparison.other, dialogue, surroundings);
    if (holds(comparison, left, right))
        return std::nullopt;
    keepWhatDiffers(left, right);
    const QString written
        = shown(right) == comparison.other ? QString() : comparison.other + u" = ";
    return Shortfall{
        u"%1 %2 %3"_s.arg(comparison.that, signOf(comparison.relation), written + shown(right)),
        shown(left)};
}

/// The position of the step's request that has the item's number.
QDomElement askedFor(const QDomElement &item, const QString &path, const Dialogue &dialogue)
{
    const auto numberOf = [](const QDomElement &position) {
        const QList<QDomElement> found = elementsAt(position, {u"PositionNumber"_s});
        return found.isEmpty() ? QString() : found.first().text();
    };
    for (const QDomElement &position :
        elementsOf(path.section(u'.', 0, 0) + u".request.Item", dialogue))
        if (numberOf(position) == numberOf(item))
            return position;
    return {};
}

} // namespace

std::optional<Shortfall> shortfallOf(const Comparison &comparison, Dialogue &dialogue)
{
    if (comparison.each.isEmpty())
        return shortfallFor(comparison, dialogue, {});
    for (const QDomElement &item : elementsOf(comparison.each, dialogue)) {
        const Surroundings surroundings{item, askedFor(item, comparison.each, dialogue)};
        if (auto shortfall = shortfallFor(comparison, dialogue, surroundings))
            return shortfall;
    }
    return std::nullopt;
}

} // namespace till::accept
