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

/// Adds the books up:
/// - each account's entries come to the balance that each of them states, and none is below zero;
/// - each sale has moved the points that its positions earned and spent and the stickers that they
///   took;
/// - each return has given back what its positions say, and taken no more than they say;
/// - what was rolled back has taken nothing from the card;
/// - no more has come back of a sold position than was sold, earned, spent and taken for it.
AuditReport audit(const Books &books);

/// The same of one card.
AuditReport auditCard(const Books &books, const QString &card);

} // namespace emulator
