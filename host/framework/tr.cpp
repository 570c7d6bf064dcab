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

// Texts of the arguments; those that are messages in the language that `spoken` gives.
template <typename Spoken> QStringList textsOf(const QVariantList &arguments, Spoken spoken)
{
    QStringList texts;
    for (const QVariant &argument : arguments)
        texts.append(argument.metaType() == QMetaType::fromType<Tr>() ? spoken(argument.value<Tr>())
                                                                      : argument.toString());
    return texts;
}

QString withCount(QString text, int count)
{
    return text.replace(u"%n"_s, QString::number(count))
        .replace(u"%Ln"_s, QLocale().toString(count));
}

} // namespace

Tr::Tr(const QString &id, const QString &text)
    : m_id(id)
    , m_text(text)
{ }

Tr Tr::arg(const QString &argument) const
{
    Tr result = *this;
    result.m_arguments.append(argument);
    return result;
}

Tr Tr::arg(const Tr &argument) const
{
    Tr result = *this;
    result.m_arguments.append(QVariant::fromValue(argument));
    return result;
}

QString Tr::ru() const
{
    return filled(m_text, textsOf(m_arguments, [](const Tr &message) { return message.ru(); }));
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
    return filled(text, textsOf(m_arguments, [](const Tr &message) { return message.ui(); }));
}

Tr::operator QVariant() const
{
    return QVariant::fromValue(*this);
}

} // namespace tr
