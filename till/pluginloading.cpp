#include "till/pluginloading.h"

#include "host/framework/basicexception.h"
#include "host/framework/loyaltysystems.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString interfaceId = u"KorvelLoyaltyOnline"_s;

[[noreturn]] void fail(const QString &fileName, const QString &reason, const QString &remedy)
{
    throw PluginError(u"%1: %2; %3"_s.arg(fileName, reason, remedy));
}

void requireMetadata(const QPluginLoader &loader, const QString &fileName)
{
    const QString remedy = u"name the loyalty plug-in with --plugin"_s;
    if (!QFileInfo::exists(fileName))
        fail(fileName, u"there is no such file"_s, remedy);
    const QJsonObject metadata = loader.metaData();
    if (metadata.isEmpty())
        fail(fileName, u"it is no plug-in for this Qt (%1)"_s.arg(loader.errorString()), remedy);
    const QString id = metadata.value(u"IID").toString();
    if (id != interfaceId)
        fail(fileName, u"its interface id is \"%1\" and not \"%2\""_s.arg(id, interfaceId), remedy);
}

BasicPlugin *initialise(QObject *object, const QString &fileName)
{
    const QString remedy = u"look into the till's log, and build it against this host"_s;
    auto *plugin = qobject_cast<BasicPlugin *>(object);
    if (!plugin)
        fail(fileName, u"its object is no plug-in of this host"_s, remedy);
    try {
        if (!plugin->init())
            fail(fileName, u"it could not be initialised"_s, remedy);
    } catch (const BasicException &error) {
        fail(fileName, u"it could not be initialised: "_s + error.tr().ui(), remedy);
    }
    return plugin;
}

BasicLoyaltySystem *systemOf(const BasicPlugin *plugin)
{
    const auto systems = Singleton<LoyaltySystems>::instance()->all();
    for (BasicLoyaltySystem *system : systems)
        if (static_cast<BasicPlugin *>(system) == plugin)
            return system;
    return nullptr;
}

} // namespace

PluginError::PluginError(const QString &text)
    : std::runtime_error(text.toStdString())
{ }

PluginError::~PluginError() = default;

LoadedPlugin::LoadedPlugin(const QString &fileName)
{
    QPluginLoader loader(fileName);
    requireMetadata(loader, fileName);
    m_object.reset(loader.instance());
    if (!m_object)
        fail(fileName, u"it cannot be loaded (%1)"_s.arg(loader.errorString()),
            u"build it against this host"_s);
    m_system = systemOf(initialise(m_object.get(), fileName));
    if (!m_system)
        fail(fileName, u"it registers no loyalty system"_s,
            u"name the loyalty plug-in with --plugin"_s);
}

LoadedPlugin::~LoadedPlugin() = default;

} // namespace till
