#include "host/documents/documentfactory.h"

template class Singleton<DocumentFactory>;

DocumentFactory::~DocumentFactory() = default;

namespace {

void copyStoredValues(const AbstractDocument &from, AbstractDocument &to)
{
    const auto groups = from.getStoredValues();
    for (auto group = groups.cbegin(); group != groups.cend(); ++group)
        for (auto value = group->cbegin(); value != group->cend(); ++value)
            to.setStoredValue(group.key(), value.key(), value.value());
}

void copyContents(const AbstractDocument &from, AbstractDocument &to)
{
    const auto positions = from.getGoods();
    for (const auto &position : positions)
        to.addPosition(position->copy());
    const auto coupons = from.getCoupons();
    for (const auto &coupon : coupons)
        to.addCoupon(QSharedPointer<Coupon>::create(*coupon));
    const auto cards = from.getCardRecords();
    for (const auto &card : cards)
        to.addCardRecord(card->copy());
}

} // namespace

QSharedPointer<AbstractDocument> DocumentFactory::makeDocument(
    const QSharedPointer<AbstractDocument> &document) const
{
    auto made
        = QSharedPointer<AbstractDocument>::create(document->getType(), document->getNumber());
    made->setPlace(document->getShop(), document->getTill());
    made->setCorrelationId(document->getCorrelationId());
    made->setOpened(document->getOpened());
    made->setReferencedNumber(document->getReferencedNumber());
    made->setNextPosnum(document->getNextPosnum());
    copyContents(*document, *made);
    copyStoredValues(*document, *made);
    return made;
}
