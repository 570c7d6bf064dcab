#include "till/core/amounttext.h"

#include <QLocale>

namespace till {

QString amountText(double amount)
{
    constexpr int kopeckDigits = 2;
    return QString::number(amount, 'f', kopeckDigits);
}

QString quantityText(double quantity)
{
    return QString::number(quantity, 'f', QLocale::FloatingPointShortest);
}

} // namespace till
