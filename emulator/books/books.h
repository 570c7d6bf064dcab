#pragma once

#include "emulator/books/calculations.h"
#include "emulator/books/cards.h"
#include "emulator/books/coupons.h"
#include "emulator/books/ledger.h"
#include "emulator/books/transactions.h"

namespace emulator {

/// The books of one database, which must outlive them.
struct Books
{
    explicit Books(Database &opened)
        : database(opened)
        , cards(opened)
        , ledger(opened)
        , transactions(opened)
        , coupons(opened)
        , calculations(opened)
    { }

    Database &database;
    Cards cards;
    Ledger ledger;
    Transactions transactions;
    Coupons coupons;
    Calculations calculations;
};

} // namespace emulator
