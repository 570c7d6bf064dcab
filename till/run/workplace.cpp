#include "till/run/workplace.h"

#include "host/config/config.h"
#include "host/framework/session.h"
#include "host/logging/logsetup.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/privacy.h"
#include "host/storage/statefolder.h"
#include "till/configuration.h"
#include "till/core/loyaltyverdict.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace till {

namespace {

QString pluginFile(const QString &given)
{
    return given.isEmpty() ? QCoreApplication::applicationDirPath() + u"/korvelloyaltyonline.so"
                           : QDir::current().absoluteFilePath(given);
}

// The configuration says where the state is, and only who holds the state folder may log into it.
std::unique_ptr<DocumentStore> prepare(const RunOptions &options)
{
    privacy::leaveNoCore();
    readConfiguration(options.configFile);
    auto *folder = Singleton<StateFolder>::instance();
    folder->setPath(stateFolder(options.stateFolder));
    auto store = std::make_unique<DocumentStore>();
    logging::setUp(
        folder->log(), Singleton<Config>::instance()->getPath(u"Till:logProperties"_s, {}));
    privacy::warnOfLooseRights();
    return store;
}

Catalogue readCatalogue()
{
    const QString file = Singleton<Config>::instance()->getPath(u"Till:catalogue"_s, {});
    return file.isEmpty() ? Catalogue() : Catalogue::load(file);
}

} // namespace

Workplace::Workplace(const RunOptions &options, Cashier &cashier)
    : m_store(prepare(options))
    , m_catalogue(readCatalogue())
    , m_services(m_recorder, cashier)
    , m_plugin(pluginFile(options.pluginFile))
    , m_till(m_plugin.loyaltySystem(), m_catalogue, *m_store, m_services.exchanges())
{
    judgeLoyaltyMessages(*Singleton<DBQueueBroker>::instance());
}

// The document is on disk; in memory it must not outlive the plug-in that made parts of it.
Workplace::~Workplace()
{
    Singleton<Session>::instance()->setCurrentDocument({});
}

} // namespace till
