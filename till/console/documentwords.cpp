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

bool comesBack(const AbstractDocument &document)
{
    return document.getOperationKind() == EOperationKind::GoodsComeBack;
}

// ", discount 9.18, points 17.15" of what was granted.
QString granted(double discount, double points)
{
    QString text;
    if (!money::equal(discount, 0.0))
        text += u", discount "_s + amountText(discount);
    if (money::counts(points))
        text += u", points "_s + amountText(points);
    return text;
}

QStringList points(const AbstractDocument &document)
{
    const LoyaltyEffects &effects = document.getEffects();
    const double paid = document.getPointsPaid();
    if (money::counts(paid))
        return {comesBack(document) ? u"Points to be given back: "_s + amountText(paid)
                                    : u"Paid with points: %1, can be spent: %2"_s.arg(
                                        amountText(paid), amountText(effects.pointsAvailable))};
    if (money::counts(effects.pointsAvailable))
        return {u"Points that can be spent: "_s + amountText(effects.pointsAvailable)};
    return {};
}

} // namespace

QString opened(const AbstractDocument &document)
{
    return u"Document %1 (%2) is %3"_s.arg(
        document.getNumber(), typeName(document), stateName(document.getState()));
}

QStringList card(const AbstractDocument &document)
{
    const auto record = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (!record)
        return {};
    QString text = u"Card "_s + record->getNumber().toString();
    const auto client = record->getCard()->getClient();
    if (client && !client->getName().isEmpty())
        text += u", "_s + client->getName();
    const auto group = record->getCard()->getCardGroup();
    if (group && !group->getName().isEmpty())
        text += u" (%1)"_s.arg(group->getName());
    // A return's record has the balance of the sale, which is not the one of now.
    const QVariant balance = record->getBonusBalance();
    if (balance.isValid() && !comesBack(document))
        text += u", balance %1 points"_s.arg(amountText(balance.toDouble()));
    return {text};
}

QString position(const GoodsItem &position)
{
    const QString text = u"%1. %2: %3 x %4 = %5"_s.arg(QString::number(position.getPosnum()),
        position.getName(), quantityText(position.getBquant()), amountText(position.getPrice()),
        amountText(position.getSumn()));
    const double points = position.getPointsPaid();
    const QString less = granted(position.getSumn() - position.getSumb() - points, points);
    return less.isEmpty() ? text : text + less + u": "_s + amountText(position.getSumb());
}

QString sums(const AbstractDocument &document)
{
    const double before = document.getSumBeforeDiscounts();
    const double after = document.getSumAfterDiscounts();
    const double points = document.getPointsPaid();
    const QString less = granted(before - after - points, points);
    const QString toPay
        = (comesBack(document) ? u"To pay back "_s : u"To pay "_s) + amountText(after);
    return less.isEmpty() ? toPay : u"Sum %1%2. %3"_s.arg(amountText(before), less, toPay);
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
    lines += card(document);
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
    lines += points(document);
    return lines + messages(document);
}

} // namespace till::words
