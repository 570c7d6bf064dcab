#include "till/console/documentwords.h"

#include "host/documents/money.h"
#include "till/core/amounttext.h"

using namespace Qt::StringLiterals;

namespace till::words {

namespace {

QString typeName(const AbstractDocument &document)
{
    switch (document.getType()) {
    case EDocumentType::Sale:
        return u"sale"_s;
    case EDocumentType::ReturnOfSale:
        return u"return of sale "_s + document.getReferencedNumber();
    case EDocumentType::ReturnWithoutSale:
        return u"return without a sale"_s;
    case EDocumentType::Correction:
        return u"correction"_s;
    }
    Q_UNREACHABLE();
}

QString stateName(EDocumentState state)
{
    switch (state) {
    case EDocumentState::Open:
        return u"open"_s;
    case EDocumentState::Closed:
        return u"closed"_s;
    case EDocumentState::Cancelled:
        return u"cancelled"_s;
    }
    Q_UNREACHABLE();
}

QStringList withoutEmpty(const QStringList &texts, const QString &before)
{
    QStringList lines;
    for (const QString &text : texts)
        if (!text.isEmpty())
            lines.append(before + text);
    return lines;
}

} // namespace

QString opened(const AbstractDocument &document)
{
    return u"Document %1 (%2) is %3"_s.arg(
        document.getNumber(), typeName(document), stateName(document.getState()));
}

QString card(const DocumentCardRecord &card)
{
    QString text = u"Card "_s + card.getNumber().toString();
    const auto client = card.getCard()->getClient();
    if (client && !client->getName().isEmpty())
        text += u", "_s + client->getName();
    const auto group = card.getCard()->getCardGroup();
    if (group && !group->getName().isEmpty())
        text += u" (%1)"_s.arg(group->getName());
    if (card.getBonusBalance().isValid())
        text += u", balance %1 points"_s.arg(amountText(card.getBonusBalance().toDouble()));
    return text;
}

QString position(const GoodsItem &position)
{
    QString text = u"%1. %2: %3 x %4 = %5"_s.arg(QString::number(position.getPosnum()),
        position.getName(), quantityText(position.getBquant()), amountText(position.getPrice()),
        amountText(position.getSumn()));
    if (!money::equal(position.getSumn(), position.getSumb()))
        text += u", less %1: %2"_s.arg(
            amountText(position.getSumn() - position.getSumb()), amountText(position.getSumb()));
    return text;
}

QString sums(const AbstractDocument &document)
{
    const double before = document.getSumBeforeDiscounts();
    const double after = document.getSumAfterDiscounts();
    if (money::equal(before, after))
        return u"To pay %1"_s.arg(amountText(after));
    return u"Sum %1, less %2, to pay %3"_s.arg(
        amountText(before), amountText(before - after), amountText(after));
}

QString coupon(const Coupon &coupon)
{
    return u"Coupon "_s + coupon.getDisplayedNumber();
}

QString payment(const Payment &payment)
{
    return u"Paid by %1: %2"_s.arg(payment.kind, amountText(payment.amount));
}

QStringList messages(const AbstractDocument &document)
{
    const LoyaltyEffects &effects = document.getEffects();
    return withoutEmpty(effects.messagesToCashier, u"For the cashier: "_s)
        + withoutEmpty(effects.messagesToClient, u"For the customer: "_s);
}

QStringList ending(const AbstractDocument &document)
{
    QStringList lines{opened(document) + u", "_s + amountText(document.getSumAfterDiscounts())};
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (card && !card->getOperationId().isEmpty())
        lines.append(u"Registered with the loyalty service; points earned: %1, balance: %2"_s.arg(
            amountText(document.getEffects().pointsEarned),
            amountText(card->getBonusBalance().toDouble())));
    return lines;
}

QStringList whole(const AbstractDocument &document)
{
    QStringList lines{opened(document)};
    if (const auto record = document.getCardRecord(ECardMode::OnlineLoyalty))
        lines.append(card(*record));
    const auto goods = document.getGoods();
    for (const auto &item : goods)
        lines.append(position(*item));
    const auto coupons = document.getCoupons();
    for (const auto &item : coupons)
        lines.append(coupon(*item));
    const auto payments = document.getPayments();
    for (const Payment &item : payments)
        lines.append(payment(item));
    lines.append(sums(document));
    return lines + messages(document);
}

} // namespace till::words
