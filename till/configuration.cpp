#include "till/configuration.h"

#include "host/config/config.h"
#include "till/installation.h"
#include "till/language/language.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString usualFile = u"till.ini"_s;

} // namespace

void readConfiguration(const QString &given)
{
    if (const QString file = configurationFile(given); !file.isEmpty())
        Singleton<Config>::instance()->load(file);
    speakAsConfigured();
}

QString configurationFile(const QString &given)
{
    for (const QString &file : {usualFile, installation::configurationFile()})
        if (given.isEmpty() && QFileInfo::exists(file))
            return file;
    return given;
}

bool isConfigured(const QString &given)
{
    return !configurationFile(given).isEmpty();
}

bool isLoyaltyWanted()
{
    return Singleton<Config>::instance()->getBool(u"Till:loyalty"_s, true);
}

QString stateFolder(const QString &given)
{
    if (!given.isEmpty())
        return QDir::current().absoluteFilePath(given);
    return Singleton<Config>::instance()->getPath(
        u"Till:state"_s, QDir::homePath() + u"/.local/state/korvel-till");
}

} // namespace till
