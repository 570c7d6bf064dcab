#include "till/configuration.h"

#include "host/config/config.h"
#include "till/language/language.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till {

void readConfiguration(const QString &given)
{
    const QString usual = u"till.ini"_s;
    if (!given.isEmpty())
        Singleton<Config>::instance()->load(given);
    else if (QFileInfo::exists(usual))
        Singleton<Config>::instance()->load(usual);
    speakAsConfigured();
}

QString stateFolder(const QString &given)
{
    if (!given.isEmpty())
        return QDir::current().absoluteFilePath(given);
    return Singleton<Config>::instance()->getPath(
        u"Till:state"_s, QDir::homePath() + u"/.local/state/korvel-till");
}

} // namespace till
