#pragma once

#include "emulator/books/chequekey.h"
#include "emulator/desk/quote.h"

namespace emulator {

/// Books a sale: the transaction, its positions, the points, the stickers, the coupons. Returns the
/// figures of its answer, the balance as it is afterwards. The caller holds the database
/// transaction.
ChequeFigures bookSale(const DeskContext &context, const ChequeKey &cheque, const Quote &quote,
    const QString &fingerprint);

} // namespace emulator
