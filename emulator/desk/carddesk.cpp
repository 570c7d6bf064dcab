#include "emulator/desk/carddesk.h"

#include "emulator/desk/returncodes.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

Card asCard(const CardData &data)
{
    return {data.number, data.status, data.type, data.holder, data.email, data.chequesByEmail,
        data.attributes, false};
}

Outcome unknownCard()
{
    return {returncodes::unknownCard, u"Карта не найдена"_s};
}

void enterOpeningBalances(const DeskContext &context, const CardData &data)
{
    Ledger &ledger = context.books.ledger;
    const qint64 at = context.now.toMSecsSinceEpoch();
    ledger.enter({data.number, Account::Active, EntryKind::Opening, data.openingBalance, 0, at});
    ledger.enter({data.number, Account::Stickers, EntryKind::Opening,
        Amount::ofUnits(data.openingStickers), 0, at});
}

} // namespace

void openCards(const DeskContext &context)
{
    for (const CardData &data : context.data.cards) {
        const bool isNew = !context.books.cards.find(data.number);
        context.books.cards.put(asCard(data));
        if (isNew)
            enterOpeningBalances(context, data);
    }
}

std::optional<Card> findCard(const DeskContext &context, const QString &number)
{
    if (auto card = context.books.cards.find(number))
        return card;
    const TechnicalCards &technical = context.data.technicalCards;
    if (technical.prefix.isEmpty() || !number.startsWith(technical.prefix))
        return {};
    Card card;
    card.number = number;
    card.status = technical.status;
    card.type = technical.type;
    card.technical = true;
    return card;
}

std::optional<Outcome> refusalOf(const DeskContext &context, const std::optional<Card> &card)
{
    if (!card)
        return unknownCard();
    const std::vector<int> &served = context.data.servedStatuses;
    if (std::find(served.begin(), served.end(), card->status) != served.end())
        return {};
    return Outcome{
        returncodes::cardNotServed, u"Карта не обслуживается (статус %1)"_s.arg(card->status)};
}

void keepTechnicalCard(const DeskContext &context, const Card &card)
{
    if (card.technical)
        context.books.cards.put(card);
}

Answer balance(const DeskContext &context, const BalanceRequest &request)
{
    const auto card = findCard(context, request.card);
    if (!card)
        return BalanceAnswer{unknownCard(), {}};
    context.books.calculations.endAll(request.till, request.card);
    return BalanceAnswer{{},
        CardFigures{card->number, card->status, card->type,
            context.books.ledger.balance(card->number, Account::Active), card->holder, card->email,
            card->chequesByEmail, card->attributes}};
}

} // namespace emulator
