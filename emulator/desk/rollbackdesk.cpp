#include "emulator/desk/rollbackdesk.h"

#include "emulator/desk/returncodes.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

ChequeAnswer refusal(const QString &message)
{
    return {{returncodes::unknownSale, message}, {}};
}

/// Books the opposite of all that the transaction moved; what of it was really moved.
Amount undoOn(const DeskContext &context, const Transaction &transaction, Account account)
{
    Ledger &ledger = context.books.ledger;
    const Amount moved = ledger.movedBy(transaction.id, account);
    return ledger.enter({transaction.cheque.card, account, EntryKind::RolledBack, -moved,
        transaction.id, context.now.toMSecsSinceEpoch()});
}

/// The points moved on the account that can be spent.
Amount undo(const DeskContext &context, const Transaction &transaction)
{
    BooksTransaction changes(context.books.database);
    const Amount moved = undoOn(context, transaction, Account::Active);
    undoOn(context, transaction, Account::Status);
    undoOn(context, transaction, Account::Stickers);
    context.books.transactions.markRolledBack(transaction.id);
    changes.commit();
    return moved;
}

ChequeAnswer answerFor(const DeskContext &context, const Transaction &transaction, Amount moved)
{
    ChequeFigures figures;
    figures.transaction = transactionText(transaction.id);
    figures.processed = context.now.toLocalTime();
    figures.sum = transaction.sum;
    figures.sumDiscounted = transaction.sumDiscounted;
    figures.balance = context.books.ledger.balance(transaction.cheque.card, Account::Active);
    figures.earned = std::max(moved, Amount());
    figures.spent = std::max(-moved, Amount());
    return {{}, figures};
}

} // namespace

Answer rollback(const DeskContext &context, const RollbackRequest &request)
{
    const auto transaction = context.books.transactions.find(request.transaction.toLongLong());
    if (!transaction || transaction->cheque.card != request.card)
        return refusal(u"Операция %1 по карте не найдена"_s.arg(request.transaction));
    if (transaction->rolledBack)
        return answerFor(context, *transaction, Amount());
    if (context.books.transactions.hasReturns(transaction->id))
        return refusal(u"По чеку №%1 уже есть возврат"_s.arg(transaction->cheque.number));
    return answerFor(context, *transaction, undo(context, *transaction));
}

} // namespace emulator
