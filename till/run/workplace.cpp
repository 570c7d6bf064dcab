#include "till/run/workplace.h"

#include "host/config/config.h"
#include "host/framework/session.h"
#include "host/logging/logsetup.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/privacy.h"
#include "host/storage/statefolder.h"
#include "till/configuration.h"
#include "till/core/loyaltyverdict.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

// The configuration says where the state is, and only who holds the state folder may log into it.
std::unique_ptr<DocumentStore> prepare(const RunOptions &options)
{
    privacy::leaveNoCore();
    readConfiguration(options.configFile);
    auto *folder = Singleton<StateFolder>::instance();
    folder->setPath(stateFolder(options.stateFolder));
    auto store = std::make_unique<DocumentStore>();
    const auto *config = Singleton<Config>::instance();
    logging::setUp(folder->log(), config->getPath(u"Till:logProperties"_s, {}));
    config->logWarnings();
    privacy::warnOfLooseRights();
    return store;
}

// One catalogue serves many tills: which one this is may stand in a file of its own.
Catalogue readCatalogue()
{
    const auto *config = Singleton<Config>::instance();
    const QString file = config->getPath(u"Till:catalogue"_s, {});
    Catalogue catalogue = file.isEmpty() ? Catalogue() : Catalogue::load(file);
    TillPlace place = catalogue.place();
    place.shop = config->getString(u"Till:shop"_s, place.shop);
    place.number = config->getString(u"Till:number"_s, place.number);
    catalogue.setPlace(place);
    return catalogue;
}

/// Null when loyalty is off and nothing that was left open needs it: a plug-in that is broken keeps
/// no such till from selling.
std::unique_ptr<LoadedPlugin> loadPlugin(const QString &file, DocumentStore &store)
{
    const auto left = isLoyaltyWanted() ? nullptr : store.loadOpen();
    const bool isNeeded = isLoyaltyWanted() || (left && Till::isPartOfLoyalty(*left));
    return isNeeded ? std::make_unique<LoadedPlugin>(file) : nullptr;
}

} // namespace

Workplace::Workplace(const RunOptions &options, Cashier &cashier)
    : m_store(prepare(options))
    , m_catalogue(readCatalogue())
    , m_services(m_recorder, cashier)
    , m_plugin(loadPlugin(pluginFile(options.pluginFile), *m_store))
    , m_till(m_plugin ? m_plugin->loyaltySystem() : m_withoutLoyalty, m_catalogue, *m_store,
          m_services.exchanges())
{
    if (!isLoyaltyWanted())
        m_till.switchLoyaltyOff(m_withoutLoyalty);
    judgeLoyaltyMessages(*Singleton<DBQueueBroker>::instance());
}

// The document is on disk; in memory it must not outlive the plug-in that made parts of it.
Workplace::~Workplace()
{
    Singleton<Session>::instance()->setCurrentDocument({});
}

} // namespace till
