#include "tests/support/hostfixture.h"

#include "host/config/config.h"
#include "host/dialogs/dialog.h"
#include "host/documents/discountlogic.h"
#include "host/documents/documentfactory.h"
#include "host/documents/documentlogic.h"
#include "host/framework/activitynotifier.h"
#include "host/framework/currenttime.h"
#include "host/framework/documentwatcher.h"
#include "host/framework/session.h"
#include "host/net/restclient.h"
#include "host/printing/textprinter.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/savetofilelogic.h"
#include "host/storage/statefolder.h"
#include "host/text/simpleformatter.h"

HostFixture::HostFixture()
{
    reset();
    Singleton<StateFolder>::instance()->setPath(m_folder.path());
}

HostFixture::~HostFixture()
{
    reset();
}

void HostFixture::reset()
{
    MockFactory<CurrentTime>::setCreator({});
    MockFactory<Dialog>::setCreator({});
    MockFactory<DiscountLogic>::setCreator({});
    MockFactory<DocumentLogic>::setCreator({});
    MockFactory<RestClient>::setCreator({});
    MockFactory<SaveToFileLogic>::setCreator({});
    MockFactory<SimpleFormatter>::setCreator({});
    MockFactory<TextPrinter>::setCreator({});
    Singleton<ActivityNotifier>::reset();
    Singleton<Config>::reset();
    Singleton<DBQueueBroker>::reset();
    Singleton<DocumentFactory>::reset();
    Singleton<DocumentWatcher>::reset();
    Singleton<Session>::reset();
    Singleton<StateFolder>::reset();
}

void HostFixture::givenSetting(const QString &key, const QString &value)
{
    Singleton<Config>::instance()->set(key, value);
}

QSharedPointer<AbstractDocument> HostFixture::givenCurrentDocument(
    EDocumentType type, const QString &number)
{
    const auto opened = QSharedPointer<AbstractDocument>::create(type, number);
    Singleton<Session>::instance()->setCurrentDocument(opened);
    return opened;
}

QSharedPointer<DocumentCardRecord> HostFixture::makeCard(const QString &number)
{
    const auto group = QSharedPointer<CardGroup>::create();
    group->setCardMode(ECardMode::OnlineLoyalty);
    const auto card = QSharedPointer<Card>::create();
    card->setNumber(number);
    card->setCardGroup(group);
    return QSharedPointer<DocumentCardRecord>::create(card);
}

QSharedPointer<DocumentCardRecord> HostFixture::givenCard(const QString &number)
{
    const auto record = makeCard(number);
    document()->addCardRecord(record);
    return record;
}

QSharedPointer<GoodsItem> HostFixture::givenPosition(
    const QString &code, double price, double quantity)
{
    const auto position = QSharedPointer<GoodsItem>::create();
    position->setPosnum(document()->takeNextPosnum());
    position->setCode(code);
    position->setPrice(price);
    position->setBquant(quantity);
    position->recalculate();
    document()->addPosition(position);
    return position;
}

QSharedPointer<Coupon> HostFixture::givenCoupon(const QString &number)
{
    const auto coupon = QSharedPointer<Coupon>::create(number);
    document()->addCoupon(coupon);
    return coupon;
}

QSharedPointer<AbstractDocument> HostFixture::document() const
{
    return Singleton<Session>::instance()->getCurrentDocument();
}
