#include "host/documents/discountlogic.h"

#include <algorithm>

template class MockFactory<DiscountLogic>;

DiscountLogic::~DiscountLogic() = default;

namespace {

using Setter = void (GoodsItem::*)(double);
using Getter = double (GoodsItem::*)() const;

void removeApplied(AbstractDocument &document, Setter setApplied)
{
    const auto positions = document.getGoods();
    for (const auto &position : positions)
        (position.data()->*setApplied)(0.0);
}

// Brings what was granted for another quantity to the one of now, so that both are for one
// quantity.
void takeOverQuantity(GoodsItem &position)
{
    if (position.getAppliedQuantity() > 0.0) {
        const double share = position.getAppliedShare();
        position.setAppliedDiscount(position.getAppliedDiscount() * share);
        position.setAppliedPoints(position.getAppliedPoints() * share);
    }
    position.setAppliedQuantity(position.getBquant());
}

void apply(
    AbstractDocument &document, const DocumentImpact &impact, Getter applied, Setter setApplied)
{
    const auto detail = impact.getDetail();
    const auto position = document.getPosition(detail->getPosition());
    if (!position)
        return;
    takeOverQuantity(*position);
    (position.data()->*setApplied)((position.data()->*applied)() + detail->getDiscountSum());
}

void removeLoyalty(AbstractDocument &document)
{
    removeApplied(document, &GoodsItem::setAppliedDiscount);
    removeApplied(document, &GoodsItem::setAppliedPoints);
    removeApplied(document, &GoodsItem::setAppliedQuantity);
    document.setEffects({});
    document.recalculate();
}

void prepareForSending(AbstractDocument &document)
{
    const bool isReturn = document.getOperationKind() == EOperationKind::GoodsComeBack;
    const auto positions = document.getGoods();
    for (const auto &position : positions)
        if (!isReturn || position->isRecalcable())
            position->recalculate();
}

} // namespace

void DiscountLogic::process(
    const QSharedPointer<AbstractDocument> &document, EDiscountProcessing mode) const
{
    switch (mode) {
    case EDiscountProcessing::RemoveLoyalty:
        removeLoyalty(*document);
        break;
    case EDiscountProcessing::PrepareForSending:
        prepareForSending(*document);
        break;
    }
}

void DiscountLogic::applyDiscounts(const QSharedPointer<AbstractDocument> &document,
    const QList<QSharedPointer<DiscountImpact>> &impacts) const
{
    removeApplied(*document, &GoodsItem::setAppliedDiscount);
    for (const auto &impact : impacts)
        apply(*document, *impact, &GoodsItem::getAppliedDiscount, &GoodsItem::setAppliedDiscount);
    document->recalculate();
}

void DiscountLogic::applyPoints(const QSharedPointer<AbstractDocument> &document,
    const QList<QSharedPointer<BonusImpact>> &impacts) const
{
    removeApplied(*document, &GoodsItem::setAppliedPoints);
    for (const auto &impact : impacts)
        apply(*document, *impact, &GoodsItem::getAppliedPoints, &GoodsItem::setAppliedPoints);
    document->recalculate();
}
