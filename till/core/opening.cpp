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
    const auto copy = cardOfSale.copy();
    // The id is the sale's: with it, cancelling the return would roll the sale back.
    copy->setOperationId({});
    return copy;
}

} // namespace

void Till::requireEmptyDesk() const
{
    if (const auto open = document())
        throw CannotDo(
            u"document %1 is open"_s.arg(open->getNumber()), u"close or cancel it first"_s);
}

QSharedPointer<AbstractDocument> Till::makeDocument(EDocumentType type)
{
    const auto made = QSharedPointer<AbstractDocument>::create(
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
        throw CannotDo(u"there is no closed sale %1"_s.arg(number),
            u"give the number of a sale of this till, or write return alone"_s);

    const auto made = makeDocument(EDocumentType::ReturnOfSale);
    made->setReferencedNumber(number);
    const auto goods = sale->getGoods();
    for (const auto &position : goods)
        made->addPosition(position);
    made->setNextPosnum(sale->getNextPosnum());
    if (const auto card = sale->getCardRecord(m_system.getCardMode()))
        made->addCardRecord(ownCopy(*card));
    open(made);
    return {};
}

} // namespace till
