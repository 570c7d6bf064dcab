#include "emulator/desk/registration.h"

#include "emulator/desk/carddesk.h"

namespace emulator {

namespace {

qint64 addTransaction(const DeskContext &context, const ChequeKey &cheque,
    const Calculation &calculation, const QString &fingerprint)
{
    return context.books.transactions.add({TransactionKind::Sale, cheque, fingerprint, context.now,
        calculation.sum(), calculation.sumDiscounted(), 0});
}

/// What the whole cheque earns belongs to its positions too, by what was paid for each: a part
/// that comes back takes its part of it along.
std::vector<Amount> chequeEarningByPosition(const Calculation &calculation)
{
    std::vector<Amount> paid;
    for (const CalculatedPosition &position : calculation.positions)
        paid.push_back(position.sumDiscounted - position.spent);
    return apportion(calculation.earnedByCheque, paid);
}

void addPositions(const DeskContext &context, const Calculation &calculation, qint64 transaction)
{
    const std::vector<Amount> chequeEarning = chequeEarningByPosition(calculation);
    for (std::size_t index = 0; index < calculation.positions.size(); ++index) {
        const CalculatedPosition &position = calculation.positions[index];
        context.books.transactions.addPosition(transaction,
            {position.number, position.article, position.price, position.quantity, position.sum,
                position.sumDiscounted, position.earned + chequeEarning[index],
                position.earnedStatus, position.spent, Amount::ofUnits(position.stickers()), 0});
    }
}

void enterMovements(const DeskContext &context, const QString &card, const Calculation &calculation,
    qint64 transaction)
{
    Ledger &ledger = context.books.ledger;
    const qint64 at = context.now.toMSecsSinceEpoch();
    ledger.enter({card, Account::Active, EntryKind::Spent, -calculation.spent(), transaction, at});
    ledger.enter({card, Account::Active, EntryKind::Earned, calculation.earned(), transaction, at});
    ledger.enter(
        {card, Account::Status, EntryKind::Earned, calculation.earnedStatus(), transaction, at});
    ledger.enter({card, Account::Stickers, EntryKind::Spent,
        -Amount::ofUnits(calculation.stickers()), transaction, at});
}

} // namespace

ChequeFigures bookSale(const DeskContext &context, const ChequeKey &cheque, const Quote &quote,
    const QString &fingerprint)
{
    keepTechnicalCard(context, quote.card);
    const qint64 transaction = addTransaction(context, cheque, quote.calculation, fingerprint);
    addPositions(context, quote.calculation, transaction);
    enterMovements(context, quote.card.number, quote.calculation, transaction);
    useCoupons(context, quote.coupons, transaction);
    const auto issued = issueCoupons(context, quote.calculation.sumDiscounted(), transaction);

    ChequeFigures figures = figuresOf(context, quote);
    figures.transaction = transactionText(transaction);
    figures.balance = context.books.ledger.balance(quote.card.number, Account::Active);
    for (const IssuedCoupon &coupon : issued)
        figures.instantCoupons.append(coupon.number);
    fillMessages(figures, quote, context.data.fiscalMessages, issued);
    return figures;
}

} // namespace emulator
