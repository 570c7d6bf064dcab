#include "host/framework/basicloyaltysystem.h"
#include "host/framework/basicplugin.h"

#include <QJsonObject>
#include <QPluginLoader>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The plug-in as the till finds it: a file.
class Library : public testing::Test
{
protected:
    QPluginLoader loader{QStringLiteral(KORVEL_PLUGIN_FILE)};
};

TEST_F(Library, ItsMetadataCarriesInterfaceIdAndClassName)
{
    const QJsonObject metaData = loader.metaData();
    EXPECT_EQ(metaData.value("IID"_L1).toString(), u"KorvelLoyaltyOnline"_s);
    EXPECT_EQ(metaData.value("className"_L1).toString(), u"KorvelLoyaltyOnline"_s);
}

TEST_F(Library, ItIsBuiltWithTheQtThatLoadsIt)
{
    const int version = loader.metaData().value("version"_L1).toInt();
    EXPECT_EQ(version & 0xffff00, QT_VERSION & 0xffff00);
}

TEST_F(Library, ItGivesThePluginPartAndTheLoyaltySystem)
{
    QObject *object = loader.instance();
    ASSERT_NE(object, nullptr) << loader.errorString().toStdString();
    auto *part = qobject_cast<BasicPlugin *>(object);
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(part->getPluginName(), u"KorvelLoyaltyOnline"_s);
    EXPECT_NE(qobject_cast<BasicLoyaltySystem *>(object), nullptr);
}

TEST_F(Library, ItGivesTheSameObjectUntilThatIsDestroyed)
{
    using Instance = QObject *(*)();
    ASSERT_TRUE(loader.load()) << loader.errorString().toStdString();
    const auto instance
        = reinterpret_cast<Instance>(QLibrary::resolve(loader.fileName(), "qt_plugin_instance"));
    ASSERT_NE(instance, nullptr);
    QObject *first = instance();
    EXPECT_EQ(instance(), first);
    delete first;
    const std::unique_ptr<QObject> second(instance());
    EXPECT_STREQ(second->metaObject()->className(), "KorvelLoyaltyOnline");
}

} // namespace
