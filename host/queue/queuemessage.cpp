#include "host/queue/queuemessage.h"

#include <QList>
#include <QPair>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QList<QPair<MessageState, QString>> &names()
{
    static const QList<QPair<MessageState, QString>> all{
        {MessageState::Pending, u"pending"_s},
        {MessageState::Sending, u"sending"_s},
        {MessageState::Delivered, u"delivered"_s},
        {MessageState::Refused, u"refused"_s},
        {MessageState::Parked, u"parked"_s},
    };
    return all;
}

} // namespace

QString stateName(MessageState state)
{
    for (const auto &[value, name] : names())
        if (value == state)
            return name;
    return {};
}

MessageState stateNamed(const QString &name)
{
    for (const auto &[value, known] : names())
        if (known == name)
            return value;
    return MessageState::Parked;
}

bool isStateName(const QString &name)
{
    return std::any_of(names().cbegin(), names().cend(),
        [&name](const auto &known) { return known.second == name; });
}
