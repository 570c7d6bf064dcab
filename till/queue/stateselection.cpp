#include "till/queue/stateselection.h"

#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till {

QList<MessageState> statesNamed(const QStringList &names)
{
    QList<MessageState> states;
    for (const QString &name : names) {
        if (!isStateName(name))
            throw CannotDo(u"there is no state \"%1\""_s.arg(name),
                u"use pending, sending, delivered, refused or parked"_s);
        states.append(stateNamed(name));
    }
    return states;
}

QList<MessageState> changeableStates(
    const QStringList &names, const QList<MessageState> &changeable)
{
    const QList<MessageState> states = statesNamed(names);
    QStringList possible;
    for (const MessageState state : changeable)
        possible.append(stateName(state));
    for (const MessageState state : states)
        if (!changeable.contains(state))
            throw CannotDo(u"messages that are %1 cannot be changed so"_s.arg(stateName(state)),
                u"use "_s + possible.join(u", "_s));
    return states.isEmpty() ? changeable : states;
}

} // namespace till
