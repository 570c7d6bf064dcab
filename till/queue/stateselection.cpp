#include "till/queue/stateselection.h"

#include "till/core/cannotdo.h"

using namespace Qt::StringLiterals;

namespace till {

QList<MessageState> statesNamed(const QStringList &names)
{
    QList<MessageState> states;
    for (const QString &name : names) {
        if (!isStateName(name))
            throw CannotDo(tr::Tr(u"queueNoSuchState"_s, u"нет состояния «%1»"_s).arg(name),
                {u"queueNoSuchStateRemedy"_s,
                    u"используйте pending, sending, delivered, refused или parked"_s});
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
            throw CannotDo(tr::Tr(u"queueStateNotChangeable"_s,
                               u"сообщения в состоянии %1 так изменить нельзя"_s)
                               .arg(stateName(state)),
                tr::Tr(u"queueStateNotChangeableRemedy"_s, u"используйте %1"_s)
                    .arg(possible.join(u", "_s)));
    return states.isEmpty() ? changeable : states;
}

} // namespace till
