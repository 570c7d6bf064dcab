#include "till/queue/queueaccess.h"

#include "host/config/config.h"
#include "host/logging/logsetup.h"
#include "host/storage/privacy.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "till/configuration.h"
#include "till/core/loyaltyverdict.h"
#include "till/queue/output.h"

#include <QFileInfo>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace till {

namespace {

void checkFolder(const QString &folder)
{
    const QFileInfo info(folder);
    if (!info.isDir())
        throw StorageError(tr::Tr(u"stateFolderMissing"_s,
            u"%1: нет такой рабочей папки; укажите папку кассы через --state или в Till:state"_s)
                               .arg(folder));
    if (info.ownerId() != geteuid())
        throw StorageError(tr::Tr(u"stateFolderForeign"_s,
            u"%1: рабочая папка принадлежит пользователю %2; запустите программу от его имени"_s)
                               .arg(folder)
                               .arg(info.owner().isEmpty() ? QString::number(info.ownerId())
                                                           : info.owner()));
}

} // namespace

DBQueueBroker &openQueue(const QueueOptions &options, const QString &logFolder)
{
    privacy::leaveNoCore();
    readConfiguration(options.configFile);
    auto *folder = Singleton<StateFolder>::instance();
    folder->setPath(stateFolder(options.stateFolder));
    checkFolder(folder->path());
    const auto *config = Singleton<Config>::instance();
    logging::setUp(folder->log() + u'/' + logFolder, config->getPath(u"Queue:logProperties"_s, {}));
    config->logWarnings();
    privacy::warnOfLooseRights();
    auto *queue = Singleton<DBQueueBroker>::instance();
    judgeLoyaltyMessages(*queue);
    for (const tr::Tr &notice : queue->open())
        complain(notice.ui());
    return *queue;
}

} // namespace till
