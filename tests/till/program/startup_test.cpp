// What the program needs to start, and what it says when something is missing.

#include "tests/till/program/programfixture.h"

#include <QDir>
#include <QFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class StartupTest : public ProgramFixture
{
public:
    void whenStartedWithPlugin(const QString &file)
    {
        whenStarted({u"run"_s, u"--state"_s, path(u"state"_s), u"--plugin"_s, file});
    }
};

TEST_F(StartupTest, AMissingPluginIsNamed)
{
    whenStartedWithPlugin(path(u"missing.so"_s));
    thenFails(3, u"korvel-till: "_s + path(u"missing.so"_s) + u": there is no such file; ");
}

TEST_F(StartupTest, AFileThatIsNoPluginIsNamed)
{
    whenStartedWithPlugin(givenFile(u"text.so"_s, "not an object file"));
    thenFails(3, u"korvel-till: "_s + path(u"text.so"_s) + u": it is no plug-in for this Qt");
}

TEST_F(StartupTest, AnotherInterfaceIsRefusedBeforeItsCodeRuns)
{
    whenStartedWithPlugin(plugin(u"otherinterface"_s));
    thenFails(3,
        u"korvel-till: "_s + plugin(u"otherinterface"_s)
            + u": its interface id is \"SomethingElse\" and not \"KorvelLoyaltyOnline\"; ");
}

TEST_F(StartupTest, AnObjectOfAnotherHostIsRefused)
{
    whenStartedWithPlugin(plugin(u"otherobject"_s));
    thenFails(3,
        u"korvel-till: "_s + plugin(u"otherobject"_s) + u": its object is no plug-in of this host");
}

TEST_F(StartupTest, APluginThatCannotBeInitialisedIsRefused)
{
    whenStartedWithPlugin(plugin(u"failinginit"_s));
    thenFails(
        3, u"korvel-till: "_s + plugin(u"failinginit"_s) + u": it could not be initialised; ");
}

TEST_F(StartupTest, TheUsualPluginIsTheOneBesideTheProgram)
{
    const QString copy = path(u"korvel-till"_s);
    ASSERT_TRUE(QFile::copy(QStringLiteral(TILL_PROGRAM), copy));
    ASSERT_TRUE(QFile::copy(plugin(u"sellingplugin"_s), path(u"korvelloyaltyonline.so"_s)));
    QProcess process;
    process.setWorkingDirectory(path(u"."_s));
    process.setProgram(copy);
    process.setArguments({u"run"_s, u"--state"_s, path(u"state"_s)});
    process.start();
    process.write("add 1001\n");
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
}

TEST_F(StartupTest, ABrokenConfigurationIsNamedWithItsLine)
{
    whenStarted(usualOptions() << u"--config"_s
                               << givenFile(u"broken.ini"_s, "[Till]\nthis is no setting\n"));
    thenFails(3, u"korvel-till: "_s + path(u"broken.ini"_s) + u":2:");
}

TEST_F(StartupTest, AMissingConfigurationIsNamed)
{
    whenStarted(usualOptions() << u"--config"_s << path(u"missing.ini"_s));
    thenFails(3, u"korvel-till: "_s + path(u"missing.ini"_s));
}

TEST_F(StartupTest, WithoutAnyConfigurationTheDefaultsCount)
{
    QFile::remove(path(u"till.ini"_s));
    whenStarted(usualOptions(), "sale\nexpect document.number == 1\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
}

TEST_F(StartupTest, ABrokenCatalogueIsNamed)
{
    givenFile(u"catalogue.json"_s, "{\"articles\": [{\"code\": 5}]}");
    whenStarted(usualOptions());
    thenFails(3, u"korvel-till: ./catalogue.json: "_s);
}

TEST_F(StartupTest, AStateFolderThatCannotBeMadeIsNamed)
{
    givenFile(u"state"_s, "a file stands in the way");
    whenStarted(usualOptions());
    thenFails(3, u"korvel-till: "_s + path(u"state"_s));
}

TEST_F(StartupTest, TheStateFolderOfTheConfigurationCounts)
{
    givenFile(u"till.ini"_s, "[Till]\nstate=kept/here\n");
    whenStarted({u"run"_s, u"--plugin"_s, plugin(u"sellingplugin"_s)}, "sale\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_TRUE(QFile::exists(path(u"kept/here/document.json"_s)));
}

TEST_F(StartupTest, TheStateFolderOfTheCommandLineWins)
{
    givenFile(u"till.ini"_s, "[Till]\nstate=kept\n");
    whenStarted(usualOptions(), "sale\n");
    EXPECT_TRUE(QFile::exists(path(u"state/document.json"_s)));
    EXPECT_FALSE(QFile::exists(path(u"kept"_s)));
}

TEST_F(StartupTest, TheUsualStateFolderIsBelowTheUsersHome)
{
    whenStarted({u"run"_s, u"--plugin"_s, plugin(u"sellingplugin"_s)}, "sale\n");
    EXPECT_TRUE(QFile::exists(path(u".local/state/korvel-till/document.json"_s)));
}

TEST_F(StartupTest, ATillWithoutLoyaltySellsWithoutAPlugin)
{
    givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\nloyalty=false\n");
    whenStarted({u"run"_s, u"--plugin"_s, path(u"missing.so"_s), u"--state"_s, path(u"state"_s)},
        "add 1001\ntotal\nexpect result == true\ncard 2900000000017\nexpect result == false\n"
        "expect refusal.id == tillLoyaltyOff\nclose\nexpect document.state == closed\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(errors, "korvel-till: Loyalty is switched off at this till\n");
}

TEST_F(StartupTest, AChequeThatNeedsThePluginIsNotSoldWithoutIt)
{
    whenScriptRuns("card 2900000000017\nadd 1001\n");
    givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\nloyalty=false\n");
    whenStartedWithPlugin(path(u"missing.so"_s));
    thenFails(3, u"korvel-till: "_s + path(u"missing.so"_s));
}

TEST_F(StartupTest, WhichTillItIsMayStandInTheSettings)
{
    givenFile(u"till.ini"_s, "[Till]\ncatalogue=catalogue.json\nshop=17\nnumber=3\n");
    whenScriptRuns("sale\n");
    QFile document(path(u"state/document.json"_s));
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    const auto kept = nlohmann::json::parse(document.readAll().toStdString());
    EXPECT_EQ(kept.at("shop"), "17");
    EXPECT_EQ(kept.at("till"), "3");
}

TEST_F(StartupTest, TheLogIsInTheStateFolder)
{
    whenStarted(usualOptions(), "card 2900000000098\n");
    QFile log(path(u"state/log/korvel.log"_s));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("The plug-in left identifyByCard by an exception"));
}

TEST_F(StartupTest, WarningsOfTheSettingsAreInTheLogThatTheSettingsName)
{
    givenFile(u"till.ini"_s, "[Till]\ncatalogue=none.json\ncatalogue=catalogue.json\n");
    whenStarted(usualOptions(), "sale\n");
    QFile log(path(u"state/log/korvel.log"_s));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("till.ini:3: ключ Till:catalogue: уже задан в строке 2"));
}

} // namespace
