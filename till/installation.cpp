#include "till/installation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace till::installation {

namespace {

const QString pluginName = u"/korvelloyaltyonline.so"_s;

} // namespace

QString pluginFile()
{
    const QString programs = QCoreApplication::applicationDirPath();
    const QString installed
        = QDir::cleanPath(programs + u'/' + QStringLiteral(KORVEL_PLUGIN_FOLDER) + pluginName);
    const QString beside = programs + pluginName;
    return !QFileInfo::exists(beside) && QFileInfo::exists(installed) ? installed : beside;
}

// A system's own programs have their settings outside their prefix.
QString configurationFile()
{
    const QString prefix = QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/..");
    return (prefix == u"/usr" ? QString() : prefix) + u"/etc/korvel/till.ini";
}

} // namespace till::installation
