#include "till/configuration.h"

#include "host/config/config.h"
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
    if (isConfigured(given))
        Singleton<Config>::instance()->load(given.isEmpty() ? usualFile : given);
    speakAsConfigured();
}

bool isConfigured(const QString &given)
{
    return !given.isEmpty() || QFileInfo::exists(usualFile);
}

QString stateFolder(const QString &given)
{
    if (!given.isEmpty())
        return QDir::current().absoluteFilePath(given);
    return Singleton<Config>::instance()->getPath(
        u"Till:state"_s, QDir::homePath() + u"/.local/state/korvel-till");
}

} // namespace till
