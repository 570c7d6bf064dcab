#pragma once

#include "emulator/books/books.h"

#include <QStringList>

namespace emulator {

struct AuditReport
{
    int cards = 0;
    int entries = 0;
    int transactions = 0;
    QStringList problems; ///< one line each; empty: the books are in order
};

/// Adds the books up: each account's entries come to the balance that each of them states, no
/// balance is below zero, and each sale has moved the points that its positions earned and spent
/// and the stickers that they took.
AuditReport audit(const Books &books);

} // namespace emulator
