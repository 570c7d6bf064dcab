#include "emulator/desk/returndesk.h"

#include "emulator/desk/carddesk.h"
#include "emulator/desk/repeats.h"
#include "emulator/desk/returncodes.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

using Parts = std::vector<ReturnedPart>;

ChequeKey keyOf(const ReturnRequest &request)
{
    return {request.till, request.number, request.card};
}

/// The sale belongs to what is the same about two returns.
QString fingerprintOf(const ReturnRequest &request)
{
    return fingerprintOf(request.positions) + u' ' + request.sale.number;
}

ChequeAnswer refusal(const QString &message)
{
    return {{returncodes::unknownSale, message}, {}};
}

Amount total(const Parts &parts, Amount ReturnedPart::*figure)
{
    Amount sum;
    for (const ReturnedPart &part : parts)
        sum += part.*figure;
    return sum;
}

void addPositions(const DeskContext &context, const Parts &parts, qint64 transaction)
{
    for (const ReturnedPart &part : parts)
        context.books.transactions.addPosition(transaction,
            {part.number, part.article, part.price, part.quantity, part.sum, part.sumDiscounted,
                part.takeBack, part.takeBackStatus, part.giveBack, part.giveBackStickers,
                part.salePosition});
}

/// What comes back first, so that points spent on the goods can pay for those they earned. Returns
/// the points really taken.
Amount moveBack(
    const DeskContext &context, const QString &card, const Parts &parts, qint64 transaction)
{
    Ledger &ledger = context.books.ledger;
    const qint64 at = context.now.toMSecsSinceEpoch();
    ledger.enter({card, Account::Active, EntryKind::GivenBack,
        total(parts, &ReturnedPart::giveBack), transaction, at});
    ledger.enter({card, Account::Stickers, EntryKind::GivenBack,
        total(parts, &ReturnedPart::giveBackStickers), transaction, at});
    ledger.enter({card, Account::Status, EntryKind::TakenBack,
        -total(parts, &ReturnedPart::takeBackStatus), transaction, at});
    return -ledger.enter({card, Account::Active, EntryKind::TakenBack,
        -total(parts, &ReturnedPart::takeBack), transaction, at});
}

/// One answered position for each of the request, also where it was sold in several.
std::vector<AnsweredPosition> answeredPositions(const ReturnRequest &request, const Parts &parts)
{
    std::vector<AnsweredPosition> answered;
    auto part = parts.begin();
    for (const RequestPosition &position : request.positions) {
        AnsweredPosition sum;
        sum.number = position.number;
        for (; part != parts.end() && part->number == position.number; ++part) {
            sum.sum += part->sum;
            sum.sumDiscounted += part->sumDiscounted;
            sum.earned += part->giveBack;
            sum.spent += part->takeBack;
        }
        answered.push_back(sum);
    }
    return answered;
}

ChequeFigures bookReturn(
    const DeskContext &context, const ReturnRequest &request, qint64 sale, const Parts &parts)
{
    ChequeFigures figures;
    figures.sum = total(parts, &ReturnedPart::sum);
    figures.sumDiscounted = total(parts, &ReturnedPart::sumDiscounted);
    const qint64 transaction
        = context.books.transactions.add({TransactionKind::Return, keyOf(request),
            fingerprintOf(request), context.now, figures.sum, figures.sumDiscounted, sale});
    addPositions(context, parts, transaction);
    figures.spent = moveBack(context, request.card, parts, transaction);
    figures.earned = total(parts, &ReturnedPart::giveBack);
    figures.transaction = transactionText(transaction);
    figures.processed = context.now.toLocalTime();
    figures.balance = context.books.ledger.balance(request.card, Account::Active);
    figures.positions = answeredPositions(request, parts);
    return figures;
}

Answer book(
    const DeskContext &context, const ReturnRequest &request, qint64 sale, const Parts &parts)
{
    BooksTransaction transaction(context.books.database);
    const auto card = findCard(context, request.card);
    keepTechnicalCard(context, *card);
    ChequeAnswer answer{{}, bookReturn(context, request, sale, parts)};
    keepAnswer(context, answer);
    transaction.commit();
    return answer;
}

Answer returnOfSale(const DeskContext &context, const ReturnRequest &request)
{
    const auto sale = context.books.transactions.findSale(
        {request.sale.till, request.sale.number, request.card}, request.sale.date);
    if (!sale)
        return refusal(u"Чек продажи №%1 не найден"_s.arg(request.sale.number));
    const auto parts
        = planReturn(context.books.transactions.soldPositions(sale->id), request.positions);
    if (!parts)
        return refusal(u"По чеку №%1 возвращается больше, чем продано"_s.arg(request.sale.number));
    return book(context, request, sale->id, *parts);
}

} // namespace

Answer returnCheque(const DeskContext &context, const ReturnRequest &request)
{
    if (const auto repeat
        = answerToRepeat(context, TransactionKind::Return, keyOf(request), fingerprintOf(request)))
        return *repeat;
    // A blocked card does not keep its holder from bringing goods back.
    if (!findCard(context, request.card))
        return ChequeAnswer{{returncodes::unknownCard, u"Карта не найдена"_s}, {}};
    if (request.sale.number.isEmpty())
        return book(context, request, 0, {});
    return returnOfSale(context, request);
}

} // namespace emulator
