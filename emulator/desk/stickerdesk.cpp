#include "emulator/desk/stickerdesk.h"

#include "emulator/desk/stickerattributes.h"

#include <algorithm>

namespace emulator {

namespace {

StickerClaims agreedBefore(const SaleRequest &request)
{
    StickerClaims claims;
    for (const RequestPosition &position : request.positions) {
        if (const auto units = unitsOfExchange(position, request.card))
            claims.insert(position.number, *units);
    }
    return claims;
}

StickerClaims acceptedNow(const SaleRequest &request)
{
    StickerClaims claims;
    for (const RequestPosition &position : request.positions) {
        if (const auto units = unitsOfOffer(position))
            claims.insert(position.number, *units);
    }
    return claims;
}

/// True also when the offer cannot be read or comes to nothing: the cashier has been asked, and
/// offers in the answer would be sent back as accepted without asking again.
bool accepts(const SaleRequest &request)
{
    return std::any_of(request.positions.begin(), request.positions.end(), carriesOffer);
}

} // namespace

StickerSettlement settleStickers(const DeskContext &context, const SaleRequest &request,
    StickerTerms terms, Positions &positions)
{
    const std::vector<StickerOffer> &offers = context.data.stickerOffers;
    const Amount balance = context.books.ledger.balance(request.card, Account::Stickers);
    const StickerSettlement agreed
        = exchangeStickers(positions, agreedBefore(request), offers, balance.wholeUnits());
    if (terms == StickerTerms::KeepAgreed)
        return agreed;
    if (accepts(request))
        exchangeStickers(positions, acceptedNow(request), offers, agreed.left);
    else
        offerStickers(positions, offers, agreed.left);
    return agreed;
}

} // namespace emulator
