#pragma once

#include "emulator/books/chequekey.h"
#include "emulator/books/database.h"
#include "emulator/rules/wish.h"

namespace emulator {

/// A verification code that was issued and not yet used.
struct WaitingCode
{
    QString card;
    QString pos;
    QString cheque;
    QString code;
};

/// What was answered to the last calculation of each open cheque. Not part of the books proper:
/// losing it loses no points.
class Calculations
{
public:
    explicit Calculations(Database &database) ///< must outlive this object
        : m_database(database)
    { }

    void remember(const ChequeKey &cheque, const LastCalculation &calculation);
    std::optional<LastCalculation> recall(const ChequeKey &cheque) const;
    void countWrongCode(const ChequeKey &cheque);
    void forget(const ChequeKey &cheque);
    /// The till's calculations for the card are those of cheques that are over.
    void endAll(const Till &till, const QString &card);

    /// The card's codes that wait to be typed; of all cards when it is empty.
    std::vector<WaitingCode> waitingCodes(const QString &card = {}) const;

private:
    Database &m_database;
};

} // namespace emulator
