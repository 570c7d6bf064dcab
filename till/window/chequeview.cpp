#include "till/window/chequeview.h"

#include "host/documents/money.h"
#include "till/language/localetext.h"
#include "till/window/texts.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

QString amountOrNothing(double amount)
{
    return money::counts(amount) ? amountForEyes(amount) : QString();
}

QString titleOf(const AbstractDocument &document)
{
    const QString number = document.getNumber();
    switch (document.getType()) {
    case EDocumentType::Sale:
        return texts::sale.arg(number).ui();
    case EDocumentType::ReturnOfSale:
        return texts::returnOfSale.arg(number).arg(document.getReferencedNumber()).ui();
    case EDocumentType::ReturnWithoutSale:
        return texts::returnWithoutSale.arg(number).ui();
    case EDocumentType::Correction:
        return texts::correction.arg(number).ui();
    }
    Q_UNREACHABLE();
}

PositionRow rowOf(const GoodsItem &position)
{
    const double points = position.getPointsPaid();
    PositionRow row;
    row.posnum = position.getPosnum();
    row.code = position.getCode();
    row.name = position.getName();
    row.quantity = quantityForEyes(position.getBquant()) + u' ' + position.getUnitName();
    row.price = amountForEyes(position.getPrice());
    row.discount = amountOrNothing(position.getSumn() - position.getSumb() - points);
    row.sum = amountForEyes(position.getSumb());
    row.points = amountOrNothing(points);
    return row;
}

bool comesBack(const AbstractDocument &document)
{
    return document.getOperationKind() == EOperationKind::GoodsComeBack;
}

QString statusOf(const AbstractDocument &document, const DocumentCardRecord &record)
{
    if (comesBack(document))
        return texts::cardOfSale.ui();
    return record.getOperationId().isEmpty() ? texts::cardAccepted.ui()
                                             : texts::cardRegistered.ui();
}

CustomerView customerOf(const AbstractDocument &document, const QString &refusedCard)
{
    CustomerView view;
    view.status = refusedCard.isEmpty() ? texts::cardMissing.ui() : refusedCard;
    const auto record = document.getCardRecord(ECardMode::OnlineLoyalty);
    if (!record)
        return view;
    view.card = record->getNumber().toString();
    if (refusedCard.isEmpty())
        view.status = statusOf(document, *record);
    if (const auto client = record->getCard()->getClient())
        view.type = client->getName();
    // A return's record has the balance of the sale, which is not the one of now.
    const QVariant balance = record->getBonusBalance();
    if (balance.isValid() && !comesBack(document))
        view.balance = amountForEyes(balance.toDouble());
    const LoyaltyEffects &effects = document.getEffects();
    view.available = amountOrNothing(effects.pointsAvailable);
    view.chosen = amountOrNothing(document.getPointsPaid());
    view.earned = amountOrNothing(effects.pointsEarned);
    return view;
}

} // namespace

ChequeView chequeView(const AbstractDocument *document, const QString &refusedCard)
{
    ChequeView view;
    view.title = texts::emptyDesk.ui();
    view.total = amountForEyes(0.0);
    view.customer.status = refusedCard.isEmpty() ? texts::cardMissing.ui() : refusedCard;
    if (!document)
        return view;
    view.title = titleOf(*document);
    view.total = amountForEyes(document->getSumAfterDiscounts());
    view.customer = customerOf(*document, refusedCard);
    const auto goods = document->getGoods();
    for (const auto &position : goods)
        view.positions.append(rowOf(*position));
    const auto coupons = document->getCoupons();
    for (const auto &coupon : coupons)
        view.coupons.append(coupon->getDisplayedNumber());
    return view;
}

} // namespace till
