#include "till/window/function.h"

#include "till/window/texts.h"

namespace till {

const QList<FunctionKey> &functionKeys()
{
    static const QList<FunctionKey> keys{{Function::Sale, Qt::Key_F1, texts::functionSale},
        {Function::Quantity, Qt::Key_F2, texts::functionQuantity},
        {Function::Remove, Qt::Key_F3, texts::functionRemove},
        {Function::Card, Qt::Key_F4, texts::functionCard},
        {Function::Points, Qt::Key_F5, texts::functionPoints},
        {Function::Coupon, Qt::Key_F6, texts::functionCoupon},
        {Function::Total, Qt::Key_F7, texts::functionTotal},
        {Function::Close, Qt::Key_F8, texts::functionClose},
        {Function::Cancel, Qt::Key_F9, texts::functionCancel},
        {Function::Return, Qt::Key_F10, texts::functionReturn},
        {Function::EndShift, Qt::Key_F11, texts::functionEndShift},
        {Function::MessagesRead, Qt::Key_F12, texts::functionMessagesRead}};
    return keys;
}

} // namespace till
