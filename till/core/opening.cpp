// Documents are opened: sales and returns.

#include "host/framework/currenttime.h"
#include "host/framework/session.h"
#include "till/core/cannotdo.h"
#include "till/core/till.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QSharedPointer<DocumentCardRecord> ownCopy(const DocumentCardRecord &cardOfSale)
{
    auto copy = cardOfSale.copy();
    // The id is the sale's: with it, cancelling the return would roll the sale back.
    copy->setOperationId({});
    return copy;
}

tr::Tr pointsOfSaleStay()
{
    return {u"tillReturnWithoutLoyalty"_s,
        u"Лояльность на этой кассе выключена: баллы покупателя после возврата не изменятся"_s};
}

} // namespace

void Till::requireEmptyDesk() const
{
    if (const auto open = document())
        throw CannotDo(
            tr::Tr(u"cannotWithOpenDocument"_s, u"открыт документ %1"_s).arg(open->getNumber()),
            {u"cannotWithOpenDocumentRemedy"_s, u"сначала закройте или отмените его"_s});
}

QSharedPointer<AbstractDocument> Till::makeDocument(EDocumentType type)
{
    auto made = QSharedPointer<AbstractDocument>::create(
        type, m_store.nextNumber(m_catalogue.place().firstCheque));
    made->setPlace(m_catalogue.place().shop, m_catalogue.place().number);
    made->setCorrelationId(QUuid::createUuid().toString(QUuid::WithoutBraces));
    made->setOpened(MockFactory<CurrentTime>::create()->currentDateTime());
    return made;
}

void Till::open(const QSharedPointer<AbstractDocument> &document)
{
    Singleton<Session>::instance()->setCurrentDocument(document);
    keep();
}

Outcome Till::openSale()
{
    requireEmptyDesk();
    open(makeDocument(EDocumentType::Sale));
    return {};
}

// Not kept yet: who opens it so puts something on it and keeps that. Until then only its number is
// used up.
void Till::openSaleWhereNoneIs()
{
    if (!document())
        Singleton<Session>::instance()->setCurrentDocument(makeDocument(EDocumentType::Sale));
}

Outcome Till::openReturn()
{
    requireEmptyDesk();
    open(makeDocument(EDocumentType::ReturnWithoutSale));
    return {};
}

Outcome Till::openReturnOf(const QString &number)
{
    requireEmptyDesk();
    const auto sale = m_store.loadClosed(number);
    if (!sale || sale->getType() != EDocumentType::Sale)
        throw CannotDo(tr::Tr(u"cannotFindSale"_s, u"нет закрытого чека продажи %1"_s).arg(number),
            {u"cannotFindSaleRemedy"_s,
                u"укажите номер чека этой кассы или оформите возврат без чека"_s});

    const auto made = makeDocument(EDocumentType::ReturnOfSale);
    made->setReferencedNumber(number);
    const auto goods = sale->getGoods();
    for (const auto &position : goods)
        made->addPosition(position);
    made->setNextPosnum(sale->getNextPosnum());
    Outcome outcome;
    if (isLoyaltyOff() && isPartOfLoyalty(*sale))
        outcome.notices.append(pointsOfSaleStay());
    else if (const auto card = sale->getCardRecord(m_system->getCardMode()))
        made->addCardRecord(ownCopy(*card));
    open(made);
    return outcome;
}

} // namespace till
