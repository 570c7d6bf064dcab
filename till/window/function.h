#pragma once

#include "host/framework/tr.h"

#include <QList>
#include <Qt>

namespace till {

/// What the cashier can do beside typing and scanning.
enum class Function
{
    Sale,
    Quantity,
    Remove,
    Card,
    Points,
    Coupon,
    Total,
    Close,
    Cancel,
    Return,
    EndShift,
    MessagesRead
};

/// A function with its place on the keyboard and its name on the bar.
struct FunctionKey
{
    Function function = {};
    Qt::Key key = {};
    tr::Tr name;
};

/// All of them, in the order of the bar.
[[nodiscard]] const QList<FunctionKey> &functionKeys();

} // namespace till
