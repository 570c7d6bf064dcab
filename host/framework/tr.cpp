#include "host/framework/tr.h"

#include <QList>
#include <QLocale>
#include <QMap>
#include <QStringList>
#include <QtGlobal>

using namespace Qt::Literals::StringLiterals;

namespace tr {

const QString undefined = QStringLiteral("undefined");

namespace {

constexpr int kopeckDigits = 2;

constexpr int decimalBase = 10;

/// "%1" to "%99" in a text.
struct Placeholder
{
    qsizetype begin = 0;
    qsizetype end = 0;
    int number = 0;
};

int digitAt(QStringView text, qsizetype at)
{
    constexpr int none = -1;
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9' ? text[at].unicode() - u'0'
                                                                    : none;
}

// By hand, since every line that a till shows, prints and journals comes through here: a regular
// expression was a third of the time of reading settings.
QList<Placeholder> placeholdersIn(QStringView text)
{
    QList<Placeholder> result;
    for (qsizetype at = text.indexOf(u'%'); at >= 0; at = text.indexOf(u'%', at + 1)) {
        const int first = digitAt(text, at + 1);
        if (first < 1)
            continue;
        const int second = digitAt(text, at + 2);
        result.append(second < 0 ? Placeholder{at, at + 2, first}
                                 : Placeholder{at, at + 3, first * decimalBase + second});
    }
    return result;
}

// The argument of each number that occurs: the lowest number takes the first argument.
QMap<int, QString> argumentsByNumber(
    const QList<Placeholder> &placeholders, const QStringList &arguments)
{
    QMap<int, QString> result;
    for (const Placeholder &placeholder : placeholders)
        result.insert(placeholder.number, u'%' + QString::number(placeholder.number));
    auto argument = arguments.cbegin();
    for (auto number = result.begin(); number != result.end() && argument != arguments.cend();
         ++number)
        *number = *argument++;
    return result;
}

// In one pass, so that an argument that holds a placeholder itself stays as it is.
QString filled(const QString &text, const QStringList &arguments)
{
    // Empty, but never null, which a database takes for no value.
    if (arguments.isEmpty())
        return text.isNull() ? u""_s : text;
    const QList<Placeholder> placeholders = placeholdersIn(text);
    const QMap<int, QString> values = argumentsByNumber(placeholders, arguments);
    QString result;
    qsizetype end = 0;
    for (const Placeholder &placeholder : placeholders) {
        result += QStringView(text).mid(end, placeholder.begin - end);
        result += values.value(placeholder.number);
        end = placeholder.end;
    }
    return result + QStringView(text).mid(end);
}

QString plainText(const QVariant &argument)
{
    if (argument.metaType() == QMetaType::fromType<Tr>())
        return argument.value<Tr>().ru();
    if (argument.metaType() == QMetaType::fromType<double>())
        return QString::number(argument.toDouble(), 'f', kopeckDigits);
    if (argument.metaType() == QMetaType::fromType<QDateTime>())
        return argument.toDateTime().toString(u"dd.MM.yyyy HH:mm"_s);
    return argument.toString();
}

QString textForInterface(const QVariant &argument)
{
    if (argument.metaType() == QMetaType::fromType<Tr>())
        return argument.value<Tr>().ui();
    if (argument.metaType() == QMetaType::fromType<double>())
        return QLocale().toString(argument.toDouble(), 'f', kopeckDigits);
    if (argument.metaType() == QMetaType::fromType<QDateTime>())
        return QLocale().toString(argument.toDateTime(), QLocale::ShortFormat);
    return argument.toString();
}

template <typename Written> QStringList textsOf(const QVariantList &arguments, Written written)
{
    QStringList texts;
    for (const QVariant &argument : arguments)
        texts.append(written(argument));
    return texts;
}

QString withCount(QString text, int count)
{
    return text.replace(u"%n"_s, QString::number(count))
        .replace(u"%Ln"_s, QLocale().toString(count));
}

} // namespace

Tr::Tr(QString id, QString text)
    : m_id(std::move(id))
    , m_text(std::move(text))
{ }

Tr Tr::with(const QVariant &argument) const
{
    Tr result = *this;
    result.m_arguments.append(argument);
    return result;
}

Tr Tr::arg(const QString &argument) const
{
    return with(argument);
}

Tr Tr::arg(const Tr &argument) const
{
    return with(QVariant::fromValue(argument));
}

Tr Tr::argAmount(double amount) const
{
    return with(amount);
}

Tr Tr::argMoment(const QDateTime &moment) const
{
    return with(moment);
}

QString Tr::ru() const
{
    return filled(m_text, textsOf(m_arguments, plainText));
}

QString Tr::ui() const
{
    const QString translated = qtTrId(m_id.toUtf8().constData());
    return filledForInterface(translated == m_id ? m_text : translated);
}

QString Tr::ui(int count) const
{
    const QString translated = qtTrId(m_id.toUtf8().constData(), count);
    return filledForInterface(translated == m_id ? withCount(m_text, count) : translated);
}

QString Tr::filledForInterface(const QString &text) const
{
    return filled(text, textsOf(m_arguments, textForInterface));
}

Tr::operator QVariant() const
{
    return QVariant::fromValue(*this);
}

} // namespace tr
