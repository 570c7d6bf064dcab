#include "till/script/arguments.h"

#include "till/core/cannotdo.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace till {

Arguments::Arguments(const QStringList &words, const QString &usage, const QStringList &options)
    : m_usage(usage)
{
    for (const QString &word : words) {
        const QString name = word.section(u'=', 0, 0);
        if (!word.contains(u'=') || !options.contains(name))
            m_words.append(word);
        else if (m_options.contains(name))
            fail(name + u"= is given twice"_s);
        else
            m_options.insert(name, word.sliced(name.size() + 1));
    }
}

QString Arguments::text(const QString &name)
{
    if (m_words.isEmpty())
        fail(name + u" is missing"_s);
    const QString word = m_words.takeFirst();
    if (word.isEmpty())
        fail(name + u" is empty"_s);
    return word;
}

QString Arguments::rest(const QString &name)
{
    if (m_words.isEmpty())
        fail(name + u" are missing"_s);
    const QString joined = m_words.join(u' ');
    m_words.clear();
    return joined;
}

double Arguments::positiveNumber(const QString &name)
{
    const QString word = text(name);
    const double value = toNumber(word, name);
    if (value <= 0.0)
        fail(name + u" must be greater than 0, it is "_s + word);
    return value;
}

double Arguments::number(const QString &name)
{
    return toNumber(text(name), name);
}

int Arguments::position()
{
    const QString word = text(u"POSITION"_s);
    bool ok = false;
    const int number = word.toInt(&ok);
    if (!ok || number < 1)
        fail(u"POSITION must be a number from 1, it is "_s + word);
    return number;
}

std::optional<QString> Arguments::option(const QString &name) const
{
    const auto found = m_options.constFind(name);
    return found == m_options.cend() ? std::nullopt : std::optional(*found);
}

std::optional<double> Arguments::numberOption(const QString &name) const
{
    const auto value = option(name);
    return value ? std::optional(toNumber(*value, name)) : std::nullopt;
}

void Arguments::end() const
{
    if (!m_words.isEmpty())
        fail(u"\"%1\" is one word too many"_s.arg(m_words.constFirst()));
}

double Arguments::toNumber(const QString &word, const QString &name) const
{
    // Stricter than a conversion: "1e3", "inf" and " 5" are slips of the pen at a till.
    static const QRegularExpression decimal(u"^[0-9]+(\\.[0-9]+)?$"_s);
    if (!decimal.match(word).hasMatch())
        fail(name + u" must be a number such as 2 or 0.742, it is "_s + word);
    return word.toDouble();
}

void Arguments::fail(const QString &reason) const
{
    throw CannotDo(reason, u"write: "_s + m_usage);
}

} // namespace till
