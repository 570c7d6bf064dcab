#include "fuzz/support/desk.h"

#include "fuzz/measure.h"
#include "fuzz/support/memoryfolder.h"

#include "host/config/config.h"
#include "host/framework/documentwatcher.h"
#include "host/framework/loyaltysystems.h"
#include "host/framework/session.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/statefolder.h"
#include "till/core/loyaltyverdict.h"

#include <QCoreApplication>

using namespace Qt::Literals::StringLiterals;

namespace fuzz {

namespace {

const Catalogue &catalogue()
{
    static const Catalogue sample
        = Catalogue::load(QStringLiteral(KORVEL_SOURCE_DIR "/config/catalogue.json"));
    return sample;
}

void startApplication()
{
    static int count = 1;
    static char name[] = "fuzz";
    static char *words[] = {name, nullptr};
    // Never ended: what it would clean up, the drivers of databases, is still used then.
    static const auto *const application = new QCoreApplication(count, words);
    Q_UNUSED(application)
}

void configure()
{
    auto *config = Singleton<Config>::instance();
    if (config->contains(u"Till:catalogue"_s))
        return;
    config->load(QStringLiteral(KORVEL_SOURCE_DIR "/config/till.ini"));
    const QString section = u"KorvelLoyaltyOnline:"_s;
    config->set(u"Till:serviceApi"_s, {});
    config->set(u"Queue:ballastKb"_s, u"0"_s);
    config->set(section + u"useConfirmation"_s, u"true"_s);
    config->set(section + u"noConfirmationBonusLimit"_s, u"50"_s);
    config->set(section + u"indexForMinRetailPrice"_s, u"5"_s);
    config->set(section + u"sendAdditionalBarcodeMarkdown"_s, u"true"_s);
    config->set(section + u"registerErrorsInActivityJournal"_s, u"true"_s);
    const QString attribute = u"KorvelLoyaltyOnline.ExtendedAttributes.price:"_s;
    config->set(attribute + u"key1"_s, u"RegularPrice"_s);
    config->set(attribute + u"value1"_s, u"${indexPrice5.price} ${position.name}"_s);
}

/// A fresh host, before anything is made that takes part of it.
void prepare()
{
    startApplication();
    configure();
    Singleton<ActivityNotifier>::reset();
    Singleton<DocumentWatcher>::reset();
    Singleton<LoyaltySystems>::reset();
    Singleton<Session>::reset();
    Singleton<StateFolder>::instance()->setPath(emptyFolder());
}

} // namespace

Desk::Desk(const Answers &answers)
    : m_isPrepared((prepare(), true))
    , m_services(m_recorder, m_cashier)
    , m_till(m_plugin, catalogue(), m_store, m_services.exchanges())
    , m_commands(m_till, m_cashier, m_clock)
    , m_interpreter(m_till, m_commands, m_cashier, m_recorder)
{
    // After the services, which put in their own, that goes over the network.
    MockFactory<RestClient>::setCreator([answers]() -> QSharedPointer<RestClient> {
        return QSharedPointer<Service>::create(answers);
    });
    require(m_plugin.init(), "the plug-in can be initialised");
    till::judgeLoyaltyMessages(*Singleton<DBQueueBroker>::instance());
}

Desk::~Desk()
{
    Singleton<Session>::instance()->setCurrentDocument({});
}

} // namespace fuzz
