#include "emulator/desk/saledesk.h"

#include "emulator/desk/carddesk.h"
#include "emulator/desk/confirmation.h"
#include "emulator/desk/quote.h"
#include "emulator/desk/registration.h"
#include "emulator/desk/repeats.h"
#include "emulator/desk/returncodes.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

ChequeKey keyOf(const SaleRequest &request)
{
    return {request.till, request.number, request.card};
}

Outcome notEnoughPoints()
{
    return {returncodes::notEnoughPoints, u"Недостаточно баллов"_s};
}

Quote quoteWish(const DeskContext &context, const SaleRequest &request, const Card &card)
{
    const auto last = context.books.calculations.recall(keyOf(request));
    const Amount wish = wishOf(request, last);
    // The cashier is only asked about offers after a calculation without points.
    const bool mayAgree = !request.fiscal && wish == Amount();
    return quoteSale(
        context, request, card, wish, mayAgree ? StickerTerms::Agree : StickerTerms::KeepAgreed);
}

void remember(const DeskContext &context, const SaleRequest &request, const ChequeFigures &figures)
{
    context.books.calculations.remember(keyOf(request),
        {figures.sum, figures.sum - figures.sumDiscounted, figures.sumDiscounted, figures.spent,
            figures.verificationCode, context.now});
}

ChequeAnswer tooManyPoints(const DeskContext &context, const Quote &quote, const Outcome &outcome)
{
    return {outcome, figuresOf(context, quote)};
}

std::optional<Outcome> refusalOfSale(
    const DeskContext &context, const SaleRequest &request, const Quote &quote)
{
    if (!quote.stickers.sufficed)
        return Outcome{returncodes::notEnoughStickers, u"Недостаточно фишек"_s};
    const auto last = context.books.calculations.recall(keyOf(request));
    switch (verdictOn(request, quote.wish, context.data.spending, last, context.now)) {
    case Verdict::Confirmed:
        return {};
    case Verdict::CodeIsVoid:
        return Outcome{returncodes::wrongConfirmation, u"Код подтверждения больше не действует"_s};
    case Verdict::WrongCode:
        context.books.calculations.countWrongCode(keyOf(request));
        break;
    case Verdict::NoCode:
        break;
    }
    return Outcome{returncodes::wrongConfirmation, u"Списание не подтверждено кодом"_s};
}

/// Books the sale and its answer together.
Answer book(const DeskContext &context, const SaleRequest &request, const Quote &quote,
    const QString &fingerprint)
{
    BooksTransaction transaction(context.books.database);
    ChequeAnswer answer{{}, bookSale(context, keyOf(request), quote, fingerprint)};
    keepAnswer(context, answer);
    context.books.calculations.forget(keyOf(request));
    transaction.commit();
    return answer;
}

} // namespace

Answer calculateSale(const DeskContext &context, const SaleRequest &request)
{
    const auto card = findCard(context, request.card);
    if (const auto refusal = refusalOf(context, card))
        return ChequeAnswer{*refusal, {}};
    const Quote quote = quoteWish(context, request, *card);
    ChequeFigures figures = figuresOf(context, quote);
    figures.verificationCode = issueCode(request, figures.spent, context.data.spending);
    remember(context, request, figures);
    if (!quote.isAffordable())
        return ChequeAnswer{notEnoughPoints(), figures};
    fillMessages(figures, quote, context.data.softMessages, {});
    return ChequeAnswer{{}, figures};
}

Answer registerSale(const DeskContext &context, const SaleRequest &request)
{
    const QString fingerprint = fingerprintOf(request.positions);
    if (const auto repeat
        = answerToRepeat(context, TransactionKind::Sale, keyOf(request), fingerprint))
        return *repeat;
    const auto card = findCard(context, request.card);
    if (const auto refusal = refusalOf(context, card))
        return ChequeAnswer{*refusal, {}};
    const Quote quote = quoteWish(context, request, *card);
    if (!quote.isAffordable())
        return tooManyPoints(context, quote, notEnoughPoints());
    if (const auto refusal = refusalOfSale(context, request, quote))
        return ChequeAnswer{*refusal, {}};
    return book(context, request, quote, fingerprint);
}

Answer refuseSpending(
    const DeskContext &context, const SaleRequest &request, const Outcome &outcome)
{
    const auto card = findCard(context, request.card);
    if (const auto refusal = refusalOf(context, card))
        return ChequeAnswer{*refusal, {}};
    return tooManyPoints(
        context, quoteSale(context, request, *card, Amount(), StickerTerms::KeepAgreed), outcome);
}

} // namespace emulator
