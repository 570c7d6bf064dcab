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
    QDateTime issued; ///< UTC
    int wrongCodes = 0; ///< that were tried
};

/// What was answered to the last calculation of each open cheque. Not part of the books proper:
/// losing it loses no points.
class Calculations
{
public:
    explicit Calculations(Database &database) ///< must outlive this object
        : m_database(database)
    { }

    /// Cheques of one till whose last calculations are kept: more than anybody sells side by side.
    static constexpr int keptForATill = 100;

    /// Forgets the till's oldest ones beyond `keptForATill`, of cheques that nobody registered and
    /// that have no code.
    void remember(const ChequeKey &cheque, const LastCalculation &calculation);
    std::optional<LastCalculation> recall(const ChequeKey &cheque) const;
    void countWrongCode(const ChequeKey &cheque);
    void forget(const ChequeKey &cheque);
    /// The till's calculations for the card are those of cheques that are over.
    void endAll(const Till &till, const QString &card);

    /// Codes for the card that were issued and not used; for all cards when it is empty. Whether
    /// they still hold is the desk's to tell.
    std::vector<WaitingCode> waitingCodes(const QString &card) const;

private:
    void forgetOldest(const Till &till);

    Database &m_database;
};

} // namespace emulator
