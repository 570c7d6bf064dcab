#include "emulator/desk/quote.h"

#include "emulator/desk/stickerattributes.h"
#include "emulator/rules/discounts.h"
#include "emulator/rules/earning.h"
#include "emulator/rules/messages.h"
#include "emulator/rules/spending.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

CalculatedPosition startOf(const RequestPosition &position)
{
    CalculatedPosition calculated;
    calculated.number = position.number;
    calculated.article = position.article;
    calculated.price = position.price;
    calculated.quantity = position.quantity;
    calculated.minimumSum
        = product(position.minimumPrice, position.quantity).value_or(position.sum);
    calculated.sum = position.sum;
    calculated.sumDiscounted = position.sum;
    return calculated;
}

Calculation discounted(const DeskContext &context, const SaleRequest &request,
    const std::vector<AnsweredCoupon> &coupons)
{
    Calculation calculation;
    for (const RequestPosition &position : request.positions)
        calculation.positions.push_back(startOf(position));
    applyDiscounts(calculation.positions, context.data, reductionsOf(context, coupons));
    return calculation;
}

QMap<QString, QString> placeholderValues(const ChequeFigures &figures, const Card &card)
{
    return {{u"holder"_s, card.holder}, {u"card"_s, card.number},
        {u"balance"_s, figures.balance.toString()}, {u"earned"_s, figures.earned.toString()},
        {u"spent"_s, figures.spent.toString()},
        {u"discount"_s, (figures.sum - figures.sumDiscounted).toString()},
        {u"sum"_s, figures.sumDiscounted.toString()}};
}

} // namespace

Quote quoteSale(const DeskContext &context, const SaleRequest &request, const Card &card,
    Amount wish, StickerTerms terms)
{
    Quote quote;
    quote.card = card;
    quote.wish = wish;
    quote.balance = context.books.ledger.balance(card.number, Account::Active);
    quote.coupons = assessCoupons(context, request.coupons);
    quote.calculation = discounted(context, request, quote.coupons);
    quote.stickers = settleStickers(context, request, terms, quote.calculation.positions);
    quote.available
        = availablePayment(quote.calculation, context.data.spending.share, quote.balance);
    if (quote.isAffordable())
        spend(quote.calculation.positions, wish);
    if (!card.technical)
        earn(quote.calculation, context.data.earning);
    return quote;
}

ChequeFigures figuresOf(const DeskContext &context, const Quote &quote)
{
    const Calculation &calculation = quote.calculation;
    ChequeFigures figures;
    figures.processed = context.now.toLocalTime();
    figures.sum = calculation.sum();
    figures.sumDiscounted = calculation.sumDiscounted();
    figures.available = quote.available;
    figures.balance = quote.balance;
    figures.earned = calculation.earned();
    figures.earnedStatus = calculation.earnedStatus();
    figures.spent = calculation.spent();
    figures.coupons = quote.coupons;
    for (const CalculatedPosition &position : calculation.positions)
        figures.positions.push_back({position.number, position.sum, position.sumDiscounted,
            position.earned, position.earnedStatus, position.spent,
            stickerAttributes(position, quote.card.number, quote.stickers.left)});
    return figures;
}

void fillMessages(ChequeFigures &figures, const Quote &quote, const Messages &templates,
    const std::vector<IssuedCoupon> &issued)
{
    QMap<QString, QString> values = placeholderValues(figures, quote.card);
    QStringList couponTexts;
    for (const IssuedCoupon &coupon : issued) {
        values.insert(couponPlaceholder(), coupon.number);
        couponTexts.append(fillPlaceholders(coupon.text, values));
    }
    figures.cashierMessage = fillPlaceholders(templates.cashier, values);
    figures.chequeMessage = chequeMessage(fillPlaceholders(templates.cheque, values), couponTexts);
}

} // namespace emulator
