#include "till/pluginloading.h"

#include "host/framework/basicexception.h"
#include "host/framework/loyaltysystems.h"
#include "till/installation.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString interfaceId = u"KorvelLoyaltyOnline"_s;

[[noreturn]] void fail(const QString &fileName, const tr::Tr &reason, const tr::Tr &remedy)
{
    throw PluginError(tr::Tr(tr::undefined, u"%1: %2; %3"_s).arg(fileName).arg(reason).arg(remedy));
}

void requireMetadata(const QPluginLoader &loader, const QString &fileName)
{
    const tr::Tr remedy{u"pluginNameIt"_s, u"укажите модуль лояльности через --plugin"_s};
    if (!QFileInfo::exists(fileName))
        fail(fileName, {u"pluginMissing"_s, u"нет такого файла"_s}, remedy);
    const QJsonObject metadata = loader.metaData();
    if (metadata.isEmpty())
        fail(fileName,
            tr::Tr(u"pluginForeign"_s, u"это не модуль для этой версии Qt (%1)"_s)
                .arg(loader.errorString()),
            remedy);
    const QString id = metadata.value(u"IID").toString();
    if (id != interfaceId)
        fail(fileName,
            tr::Tr(u"pluginInterface"_s, u"идентификатор интерфейса «%1», а нужен «%2»"_s)
                .arg(id)
                .arg(interfaceId),
            remedy);
}

BasicPlugin *initialise(QObject *object, const QString &fileName)
{
    const tr::Tr remedy{
        u"pluginBuildAndLook"_s, u"посмотрите журнал программы и соберите модуль с этим хостом"_s};
    auto *plugin = qobject_cast<BasicPlugin *>(object);
    if (!plugin)
        fail(fileName, {u"pluginObject"_s, u"его объект не подходит этому хосту"_s}, remedy);
    try {
        if (!plugin->init())
            fail(fileName, {u"pluginNotInitialised"_s, u"не удалось инициализировать модуль"_s},
                remedy);
    } catch (const BasicException &error) {
        fail(fileName,
            tr::Tr(u"pluginNotInitialisedBecause"_s, u"не удалось инициализировать модуль: %1"_s)
                .arg(error.tr()),
            remedy);
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

PluginError::~PluginError() = default;

QString pluginFile(const QString &given)
{
    return given.isEmpty() ? installation::pluginFile() : QDir::current().absoluteFilePath(given);
}

void requirePluginFile(const QString &fileName)
{
    requireMetadata(QPluginLoader(fileName), fileName);
}

LoadedPlugin::LoadedPlugin(const QString &fileName)
{
    QPluginLoader loader(fileName);
    requireMetadata(loader, fileName);
    m_object.reset(loader.instance());
    if (!m_object)
        fail(fileName,
            tr::Tr(u"pluginNotLoaded"_s, u"модуль не загружается (%1)"_s).arg(loader.errorString()),
            {u"pluginBuild"_s, u"соберите его с этим хостом"_s});
    m_system = systemOf(initialise(m_object.get(), fileName));
    if (!m_system)
        fail(fileName, {u"pluginWithoutSystem"_s, u"модуль не регистрирует систему лояльности"_s},
            {u"pluginNameIt"_s, u"укажите модуль лояльности через --plugin"_s});
}

LoadedPlugin::~LoadedPlugin() = default;

} // namespace till
