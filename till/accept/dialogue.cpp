#include "till/accept/dialogue.h"

#include <utility>

namespace till::accept {

Dialogue::Dialogue(QMap<QString, QString> variables, std::function<QString()> newNumber)
    : m_variables(std::move(variables))
    , m_newNumber(std::move(newNumber))
{ }

const Exchange *Dialogue::find(const QString &step) const
{
    const auto found = m_exchanges.constFind(step);
    return found == m_exchanges.constEnd() ? nullptr : &*found;
}

QString Dialogue::number(const QString &name)
{
    QString &number = m_numbers[name];
    if (number.isEmpty())
        number = m_newNumber();
    return number;
}

} // namespace till::accept
