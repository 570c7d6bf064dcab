#include "host/framework/tr.h"

#include <QtGlobal>

namespace tr {

const QString undefined = QStringLiteral("undefined");

namespace {

QString filled(QString text, const QStringList &arguments)
{
    for (const QString &argument : arguments)
        text = text.arg(argument);
    return text;
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
