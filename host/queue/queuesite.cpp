#include "host/queue/queuesite.h"

#include "host/config/config.h"
#include "host/queue/server/serveraddress.h"

using namespace Qt::Literals::StringLiterals;

QueueSite QueueSite::configured(const QString &queueFolder)
{
    const auto *const config = Singleton<Config>::instance();
    const QString setting = u"Queue:database"_s;
    const QString usualFile = queueFolder + u"/queue.sqlite"_s;
    const QString database = config->getString(setting, {});
    if (ServerAddress::isMeantBy(database))
        return {usualFile, database};
    return {config->getPath(setting, usualFile), {}};
}
