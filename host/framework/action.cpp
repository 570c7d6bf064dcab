#include "host/framework/action.h"

namespace control {

Action::Action(EActionType type, const QMap<QString, QVariant> &values)
    : m_type(type)
    , m_values(QSharedPointer<QMap<QString, QVariant>>::create(values))
{ }

QVariant Action::value(const QString &name, const QVariant &defaultValue) const
{
    return m_values->value(name, defaultValue);
}

void Action::insert(const QString &name, const QVariant &value) const
{
    m_values->insert(name, value);
}

} // namespace control
