#include "till/script/arguments.h"

#include "till/core/cannotdo.h"

#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;

namespace till {

Arguments::Arguments(const QStringList &words, QString usage, const QStringList &options)
    : m_usage(std::move(usage))
{
    for (const QString &word : words) {
        const QString name = word.section(u'=', 0, 0);
        if (!word.contains(u'=') || !options.contains(name))
            m_words.append(word);
        else if (m_options.contains(name))
            fail(tr::Tr(u"scriptTwice"_s, u"%1= указано дважды"_s).arg(name));
        else
            m_options.insert(name, word.sliced(name.size() + 1));
    }
}

QString Arguments::text(const QString &name)
{
    if (m_words.isEmpty())
        fail(tr::Tr(u"scriptMissing"_s, u"не хватает %1"_s).arg(name));
    QString word = m_words.takeFirst();
    if (word.isEmpty())
        fail(tr::Tr(u"scriptEmpty"_s, u"пустое значение %1"_s).arg(name));
    return word;
}

QString Arguments::rest(const QString &name)
{
    if (m_words.isEmpty())
        fail(tr::Tr(u"scriptMissingWords"_s, u"не хватает слов %1"_s).arg(name));
    QString joined = m_words.join(u' ');
    m_words.clear();
    return joined;
}

double Arguments::positiveNumber(const QString &name)
{
    const QString word = text(name);
    const double value = toNumber(word, name);
    if (value <= 0.0)
        fail(tr::Tr(u"scriptNotPositive"_s, u"%1 должно быть больше 0, а указано %2"_s)
                 .arg(name)
                 .arg(word));
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
        fail(tr::Tr(u"scriptNoPosition"_s, u"POSITION должно быть числом от 1, а указано %1"_s)
                 .arg(word));
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
        fail(tr::Tr(u"scriptTooManyWords"_s, u"лишнее слово «%1»"_s).arg(m_words.constFirst()));
}

double Arguments::toNumber(const QString &word, const QString &name) const
{
    // Stricter than a conversion: "1e3", "inf" and " 5" are slips of the pen at a till.
    static const QRegularExpression decimal(u"^[0-9]+(\\.[0-9]+)?$"_s);
    if (!decimal.match(word).hasMatch())
        fail(tr::Tr(
            u"scriptNoNumber"_s, u"%1 должно быть числом, например 2 или 0.742, а указано %2"_s)
                 .arg(name)
                 .arg(word));
    return word.toDouble();
}

void Arguments::fail(const tr::Tr &reason) const
{
    throw CannotDo(reason, tr::Tr(u"scriptUsage"_s, u"напишите: %1"_s).arg(m_usage));
}

} // namespace till
