#include "host/framework/tr.h"

#include <QLocale>
#include <QMap>
#include <QRegularExpression>
#include <QStringList>
#include <QtGlobal>

using namespace Qt::Literals::StringLiterals;

namespace tr {

const QString undefined = QStringLiteral("undefined");

namespace {

constexpr int kopeckDigits = 2;

const QRegularExpression &placeholder()
{
    static const QRegularExpression expression(QStringLiteral("%([1-9]\\d?)"));
    return expression;
}

// The argument of each number that occurs: the lowest number takes the first argument.
QMap<int, QString> argumentsByNumber(const QString &text, const QStringList &arguments)
{
    QMap<int, QString> result;
    for (const auto &match : placeholder().globalMatch(text))
        result.insert(match.capturedView(1).toInt(), match.captured());
    auto argument = arguments.cbegin();
    for (auto number = result.begin(); number != result.end() && argument != arguments.cend();
         ++number)
        *number = *argument++;
    return result;
}

// In one pass, so that an argument that holds a placeholder itself stays as it is.
QString filled(const QString &text, const QStringList &arguments)
{
    const QMap<int, QString> values = argumentsByNumber(text, arguments);
    QString result;
    qsizetype end = 0;
    for (const auto &match : placeholder().globalMatch(text)) {
        result += QStringView(text).mid(end, match.capturedStart() - end);
        result += values.value(match.capturedView(1).toInt());
        end = match.capturedEnd();
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
