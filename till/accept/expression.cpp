#include "till/accept/expression.h"

#include "host/documents/money.h"
#include "till/accept/functions.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

/// Reads an expression from left to right and evaluates it on the way.
class Evaluation
{
public:
    Evaluation(QString text, Dialogue &dialogue, const Surroundings &surroundings)
        : m_text(std::move(text))
        , m_dialogue(dialogue)
        , m_surroundings(surroundings)
    { }

    Value whole()
    {
        Value value = sum();
        if (peek() != QChar())
            fail();
        return value;
    }

private:
    [[noreturn]] void fail() const
    {
        throw ExpressionError(
            u"\"%1\", %2"_s.arg(m_text, QString::number(m_place + 1)).toStdString());
    }

    QChar peek()
    {
        while (m_place < m_text.size() && m_text[m_place].isSpace())
            ++m_place;
        return m_place < m_text.size() ? m_text[m_place] : QChar();
    }

    bool take(QChar sign)
    {
        if (peek() != sign)
            return false;
        ++m_place;
        return true;
    }

    template <typename Operation>
    static Value combined(const Value &left, const Value &right, Operation operation)
    {
        constexpr int decimals = 6; // of a percentage of an amount, and some to spare
        const auto one = left.number();
        const auto other = right.number();
        if (!one || !other)
            return {};
        return {QString::number(operation(*one, *other), 'f', decimals), true};
    }

    Value sum()
    {
        Value value = product();
        for (;;)
            if (take(u'+'))
                value = combined(value, product(), std::plus<>());
            else if (take(u'-'))
                value = combined(value, product(), std::minus<>());
            else
                return value;
    }

    Value product()
    {
        Value value = factor();
        for (;;)
            if (take(u'*'))
                value = combined(value, factor(), std::multiplies<>());
            else if (take(u'/'))
                value = combined(value, factor(),
                    [](double whole, double parts) { return parts == 0 ? 0 : whole / parts; });
            else
                return value;
    }

    Value factor()
    {
        if (take(u'(')) {
            Value value = sum();
            if (!take(u')'))
                fail();
            return value;
        }
        if (take(u'-'))
            return combined(Value{u"0"_s}, factor(), std::minus<>());
        if (peek() == u'\'')
            return Value{quoted()};
        if (peek().isDigit())
            return Value{word()};
        if (!peek().isLetter())
            fail();
        const QString name = word();
        return take(u'(') ? call(name) : valueOf(name);
    }

    QString quoted()
    {
        const qsizetype end = m_text.indexOf(u'\'', m_place + 1);
        if (end < 0)
            fail();
        QString text = m_text.mid(m_place + 1, end - m_place - 1);
        m_place = end + 1;
        return text;
    }

    QString word()
    {
        const qsizetype start = m_place;
        while (m_place < m_text.size()
            && (m_text[m_place].isLetterOrNumber() || m_text[m_place] == u'.'))
            ++m_place;
        return m_text.mid(start, m_place - start);
    }

    Value call(const QString &name)
    {
        if (functions::takesPath(name)) {
            peek();
            const QString path = word();
            if (!take(u')'))
                fail();
            return functions::ofPath(name, path, m_dialogue);
        }
        QList<Value> arguments{sum()};
        while (take(u','))
            arguments.append(sum());
        if (!take(u')'))
            fail();
        const auto value = functions::ofValues(name, arguments, m_dialogue);
        if (!value)
            fail();
        return *value;
    }

    Value valueOf(const QString &name)
    {
        if (const auto variable = m_dialogue.variables().constFind(name);
            variable != m_dialogue.variables().constEnd())
            return Value{*variable};
        const QString first = name.section(u'.', 0, 0);
        const QStringList rest = name.split(u'.').mid(1);
        if (first == u"item" || first == u"asked")
            return textOf(
                elementsAt(first == u"item" ? m_surroundings.item : m_surroundings.asked, rest));
        const Exchange *exchange = m_dialogue.find(first);
        if (rest.size() != 1 || !exchange)
            return textOf(elementsOf(name, m_dialogue));
        if (rest[0] == u"status")
            return Value{QString::number(exchange->answer.httpStatus())};
        if (rest[0] == u"kind")
            return Value{exchange->answer.kind()};
        if (rest[0] == u"holder")
            return Value{exchange->holderCode};
        return textOf(elementsOf(name, m_dialogue));
    }

    static Value textOf(const QList<QDomElement> &elements)
    {
        return elements.isEmpty() ? Value{} : Value{elements.first().text()};
    }

    const QString m_text;
    Dialogue &m_dialogue;
    const Surroundings &m_surroundings;
    qsizetype m_place = 0;
};

} // namespace

std::optional<double> Value::number() const
{
    bool isNumber = false;
    const double value = text.value_or(QString()).toDouble(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

QString Value::written() const
{
    return isComputed ? *amountValue(number().value_or(0)).text : text.value_or(QString());
}

Value amountValue(double amount)
{
    constexpr int decimals = 2;
    return Value{QString::number(money::roundedToKopecks(amount), 'f', decimals)};
}

Value evaluate(const QString &expression, Dialogue &dialogue, const Surroundings &surroundings)
{
    return Evaluation(expression, dialogue, surroundings).whole();
}

QList<QDomElement> elementsOf(const QString &path, const Dialogue &dialogue)
{
    QStringList names = path.split(u'.');
    const Exchange *exchange = dialogue.find(names.takeFirst());
    // A step that was not reached has said nothing.
    if (!exchange)
        return {};
    if (!names.isEmpty() && names.first() == u"request")
        return elementsAt(exchange->payload, names.mid(1));
    return elementsAt(exchange->answer.payload, names);
}

} // namespace till::accept
