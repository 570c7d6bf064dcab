#pragma once

#include "emulator/amounts/amount.h"

#include <QSqlQuery>
#include <QVariant>

namespace emulator {

/// Amounts stand in the tables as hundredths, quantities as thousandths.
inline Amount amountIn(const QSqlQuery &row, int column)
{
    return Amount::ofHundredths(row.value(column).toLongLong());
}

inline Quantity quantityIn(const QSqlQuery &row, int column)
{
    return Quantity::ofThousandths(row.value(column).toLongLong());
}

} // namespace emulator
