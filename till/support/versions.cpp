#include "till/support/versions.h"

#include "host/config/config.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QLocale>
#include <QPluginLoader>
#include <QSysInfo>
#include <QTimeZone>

#include <archive.h>
#include <curl/curl.h>

using namespace Qt::StringLiterals;

namespace till::support {

namespace {

Json pluginObject(const QString &fileName)
{
    const QPluginLoader loader(fileName);
    const QFileInfo file(fileName);
    Json object{{"file", toJson(fileName)}, {"bytes", file.exists() ? Json(file.size()) : Json()},
        {"modified", dateTimeToJson(file.lastModified())}};
    object["metadata"] = Json::parse(
        QJsonDocument(loader.metaData()).toJson(QJsonDocument::Compact).toStdString());
    return object;
}

Json systemObject()
{
    return {{"name", toJson(QSysInfo::prettyProductName())},
        {"kernel", toJson(QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion())},
        {"processor", toJson(QSysInfo::currentCpuArchitecture())},
        {"locale", toJson(QLocale::system().name())}};
}

} // namespace

QString technicalCardName()
{
    return Singleton<Config>::instance()->getString(
        u"KorvelLoyaltyOnline:technicalCardName"_s, u"Korvel Loyalty Online Technical"_s);
}

Json versions(const QString &program, const QString &pluginFile)
{
    return {{"program", toJson(program)}, {"qt", qVersion()}, {"curl", curl_version()},
        {"archive", archive_version_string()}, {"plugin", pluginObject(pluginFile)},
        {"system", systemObject()},
        {"timeZone", toJson(QString::fromUtf8(QTimeZone::systemTimeZoneId()))},
        {"technicalCardName", toJson(technicalCardName())}};
}

} // namespace till::support
