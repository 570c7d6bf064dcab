// Positions are added, changed and taken off.

#include "till/core/amounttext.h"
#include "till/core/cannotdo.h"
#include "till/core/till.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

QSharedPointer<GoodsItem> makePosition(const Article &article, const PositionRequest &request)
{
    auto position = QSharedPointer<GoodsItem>::create();
    position->setCode(article.code);
    position->setBarcode(article.barcodes.value(0));
    position->setName(article.name);
    position->setPrice(request.price.value_or(article.price));
    position->setBquant(request.quantity);
    position->setExtendedOptions(request.extendedOptions.value_or(article.extendedOptions));
    position->setMinRetailPrice(article.minRetailPrice);
    position->setTmc(article.tmc);
    position->setTmcUnit(article.unit);
    return position;
}

} // namespace

void Till::requireGoodsAllowed() const
{
    requireChangeable();
    if (document() && document()->getType() == EDocumentType::ReturnOfSale)
        throw CannotDo(
            {u"cannotAddToReturn"_s, u"возврат по чеку берёт свои позиции из чека продажи"_s},
            {u"cannotAddToReturnRemedy"_s, u"для других товаров оформите возврат без чека"_s});
}

Outcome Till::addPosition(const PositionRequest &request)
{
    const Article *article = m_catalogue.byCode(request.code);
    if (!article)
        throw CannotDo(
            tr::Tr(u"cannotFindArticle"_s, u"в каталоге нет товара %1"_s).arg(request.code),
            {u"cannotFindArticleRemedy"_s,
                u"возьмите код из каталога, который указан в Till:catalogue"_s});
    requireGoodsAllowed();
    openSaleWhereNoneIs();
    Outcome outcome;
    insertPosition(*article, request, outcome);
    keep();
    return outcome;
}

void Till::insertPosition(const Article &article, const PositionRequest &request, Outcome &outcome)
{
    const auto open = document();
    const auto position = makePosition(article, request);
    position->setPosnum(open->getNextPosnum());
    position->recalculate();
    const control::Action action(control::EActionType::AddPosition,
        {{u"position"_s, QVariant::fromValue(position)}, {u"rawdata"_s, request.rawData}});
    runAction(action, outcome, [&] {
        open->takeNextPosnum();
        open->addPosition(position);
        dropPayments();
    });
}

Outcome Till::changeQuantity(int posnum, double quantity)
{
    const auto position = openPosition(posnum);
    requireChangeable();
    requireNoMoreThanSold(posnum, quantity);
    Outcome outcome;
    setQuantity(*position, quantity, outcome);
    keep();
    return outcome;
}

void Till::requireNoMoreThanSold(int posnum, double quantity) const
{
    if (document()->getType() != EDocumentType::ReturnOfSale)
        return;
    const auto sale = m_store.loadClosed(document()->getReferencedNumber());
    const auto sold = sale ? sale->getPosition(posnum) : QSharedPointer<GoodsItem>();
    if (sold && quantity > sold->getBquant())
        throw CannotDo(tr::Tr(u"cannotReturnMore"_s, u"по позиции %2 продано только %1"_s)
                           .arg(quantityText(sold->getBquant()))
                           .arg(QString::number(posnum)),
            {u"cannotReturnMoreRemedy"_s, u"верните столько же или меньше"_s});
}

void Till::setQuantity(GoodsItem &position, double quantity, Outcome &outcome)
{
    ModifiersContainer &modifiers = document()->getModifiers();
    modifiers.set(modifiers::Type::Quantity, QVariant::fromValue(Quantity(quantity)));
    const control::Action action(
        control::EActionType::ApplyModifiers, {{u"positionNumber"_s, position.getPosnum()}});
    runAction(action, outcome, [&] {
        position.setBquant(quantity);
        position.recalculate();
        dropPayments();
    });
    modifiers.clear(modifiers::Type::Quantity);
}

Outcome Till::removePosition(int posnum)
{
    const auto position = openPosition(posnum);
    requireChangeable();
    document()->removePosition(position->getPosnum());
    dropPayments();
    keep();
    return {};
}

} // namespace till
