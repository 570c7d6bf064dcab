#include "till/console/documentwords.h"

#include "host/documents/money.h"
#include "host/framework/tr.h"
#include "till/language/localetext.h"

using namespace Qt::StringLiterals;

namespace till::words {

namespace {

tr::Tr typeName(const AbstractDocument &document)
{
    switch (document.getType()) {
    case EDocumentType::Sale:
        return {u"consoleSale"_s, u"продажа"_s};
    case EDocumentType::ReturnOfSale:
        return tr::Tr(u"consoleReturnOfSale"_s, u"возврат по чеку %1"_s)
            .arg(document.getReferencedNumber());
    case EDocumentType::ReturnWithoutSale:
        return {u"consoleReturn"_s, u"возврат без чека"_s};
    case EDocumentType::Correction:
        return {u"consoleCorrection"_s, u"коррекция"_s};
    }
    Q_UNREACHABLE();
}

tr::Tr stateName(EDocumentState state)
{
    switch (state) {
    case EDocumentState::Open:
        return {u"consoleOpen"_s, u"открыт"_s};
    case EDocumentState::Closed:
        return {u"consoleClosed"_s, u"закрыт"_s};
    case EDocumentState::Cancelled:
        return {u"consoleCancelled"_s, u"отменён"_s};
    }
    Q_UNREACHABLE();
}

QStringList withoutEmpty(const QStringList &texts, const tr::Tr &frame)
{
    QStringList lines;
    for (const QString &text : texts)
        if (!text.isEmpty())
            lines.append(frame.arg(text).ui());
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
        text += tr::Tr(u"consoleDiscount"_s, u", скидка %1"_s).arg(amountForEyes(discount)).ui();
    if (money::counts(points))
        text += tr::Tr(u"consolePoints"_s, u", баллы %1"_s).arg(amountForEyes(points)).ui();
    return text;
}

QStringList points(const AbstractDocument &document)
{
    const LoyaltyEffects &effects = document.getEffects();
    const double paid = document.getPointsPaid();
    if (money::counts(paid) && comesBack(document))
        return {tr::Tr(u"consolePointsBack"_s, u"Будет возвращено баллов: %1"_s)
                    .arg(amountForEyes(paid))
                    .ui()};
    if (money::counts(paid))
        return {tr::Tr(u"consolePaidWithPoints"_s, u"Оплачено баллами: %1, можно потратить: %2"_s)
                    .arg(amountForEyes(paid))
                    .arg(amountForEyes(effects.pointsAvailable))
                    .ui()};
    if (money::counts(effects.pointsAvailable))
        return {tr::Tr(u"consolePointsAvailable"_s, u"Можно потратить баллов: %1"_s)
                    .arg(amountForEyes(effects.pointsAvailable))
                    .ui()};
    return {};
}

} // namespace

QString opened(const AbstractDocument &document)
{
    return tr::Tr(u"consoleDocument"_s, u"Документ %1 (%2): %3"_s)
        .arg(document.getNumber())
        .arg(typeName(document))
        .arg(stateName(document.getState()))
        .ui();
}

QStringList card(const AbstractDocument &document)
{
    const auto record = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (!record)
        return {};
    QString text = tr::Tr(u"consoleCard"_s, u"Карта %1"_s).arg(record->getNumber().toString()).ui();
    const auto client = record->getCard()->getClient();
    if (client && !client->getName().isEmpty())
        text += u", "_s + client->getName();
    const auto group = record->getCard()->getCardGroup();
    if (group && !group->getName().isEmpty())
        text += u" (%1)"_s.arg(group->getName());
    // A return's record has the balance of the sale, which is not the one of now.
    const QVariant balance = record->getBonusBalance();
    if (balance.isValid() && !comesBack(document))
        text += tr::Tr(u"consoleBalance"_s, u", баланс: %1 (баллы)"_s)
                    .arg(amountForEyes(balance.toDouble()))
                    .ui();
    return {text};
}

QString position(const GoodsItem &position)
{
    const QString text = u"%1. %2: %3 x %4 = %5"_s.arg(QString::number(position.getPosnum()),
        position.getName(), quantityForEyes(position.getBquant()),
        amountForEyes(position.getPrice()), amountForEyes(position.getSumn()));
    const double points = position.getPointsPaid();
    const QString less = granted(position.getSumn() - position.getSumb() - points, points);
    return less.isEmpty() ? text : text + less + u": "_s + amountForEyes(position.getSumb());
}

QString sums(const AbstractDocument &document)
{
    const double before = document.getSumBeforeDiscounts();
    const double after = document.getSumAfterDiscounts();
    const double points = document.getPointsPaid();
    const QString less = granted(before - after - points, points);
    const tr::Tr toPay = comesBack(document) ? tr::Tr(u"consoleToPayBack"_s, u"К возврату %1"_s)
                                             : tr::Tr(u"consoleToPay"_s, u"К оплате %1"_s);
    const QString text = toPay.arg(amountForEyes(after)).ui();
    return less.isEmpty() ? text
                          : tr::Tr(u"consoleSum"_s, u"Сумма %1%2. %3"_s)
                                .arg(amountForEyes(before))
                                .arg(less)
                                .arg(text)
                                .ui();
}

QString coupon(const Coupon &coupon)
{
    return tr::Tr(u"consoleCoupon"_s, u"Купон %1"_s).arg(coupon.getDisplayedNumber()).ui();
}

QString payment(const Payment &payment)
{
    return tr::Tr(u"consolePaid"_s, u"Оплачено (%1): %2"_s)
        .arg(payment.kind)
        .arg(amountForEyes(payment.amount))
        .ui();
}

QStringList messages(const AbstractDocument &document)
{
    const LoyaltyEffects &effects = document.getEffects();
    return withoutEmpty(effects.messagesToCashier, tr::Tr(u"consoleForCashier"_s, u"Кассиру: %1"_s))
        + withoutEmpty(
            effects.messagesToClient, tr::Tr(u"consoleForCustomer"_s, u"Покупателю: %1"_s));
}

QStringList ending(const AbstractDocument &document)
{
    QStringList lines{opened(document) + u", "_s + amountForEyes(document.getSumAfterDiscounts())};
    const auto card = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (card && !card->getOperationId().isEmpty())
        lines.append(tr::Tr(u"consoleRegistered"_s,
            u"Зарегистрирован в системе лояльности; начислено баллов: %1, баланс: %2"_s)
                         .arg(amountForEyes(document.getEffects().pointsEarned))
                         .arg(amountForEyes(card->getBonusBalance().toDouble()))
                         .ui());
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
