#include "till/language/localetext.h"

#include <QLocale>

namespace till {

QString amountForEyes(double amount)
{
    constexpr int kopeckDigits = 2;
    return QLocale().toString(amount, 'f', kopeckDigits);
}

QString quantityForEyes(double quantity)
{
    return QLocale().toString(quantity, 'f', QLocale::FloatingPointShortest);
}

QString momentForEyes(const QDateTime &moment)
{
    return QLocale().toString(moment, QLocale::ShortFormat);
}

} // namespace till
