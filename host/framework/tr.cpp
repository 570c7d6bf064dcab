#include "host/framework/tr.h"

#include <QMap>
#include <QRegularExpression>
#include <QtGlobal>

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

QString Tr::ru() const
{
    return filled(m_text, m_arguments);
}

QString Tr::ui() const
{
    const QByteArray id = m_id.toUtf8();
    const QString translated = qtTrId(id.constData());
    return filled(translated == m_id ? m_text : translated, m_arguments);
}

Tr::operator QVariant() const
{
    return QVariant::fromValue(*this);
}

} // namespace tr
