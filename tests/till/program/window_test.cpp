// `korvel-till window` becomes the program with the window.

#include "tests/till/program/programfixture.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class WindowProgramTest : public ProgramFixture
{ };

TEST_F(WindowProgramTest, HelpNamesTheOptions)
{
    whenStarted({u"window"_s, u"--help"_s});
    EXPECT_EQ(status, 0);
    for (const char *option : {"--config", "--plugin", "--state"})
        EXPECT_TRUE(output.contains(option)) << option;
}

TEST_F(WindowProgramTest, ThePlugInAndTheStateFolderAreHandedOver)
{
    whenStarted(
        {u"window"_s, u"--plugin"_s, path(u"missing.so"_s), u"--state"_s, path(u"window state"_s)});
    thenFails(3, u"korvel-till-window: "_s);
    EXPECT_TRUE(errors.contains("missing.so"));
    EXPECT_TRUE(QFileInfo(path(u"window state"_s)).isDir());
}

TEST_F(WindowProgramTest, TheSettingsAreHandedOver)
{
    whenStarted({u"window"_s, u"--config"_s, path(u"missing.ini"_s)});
    EXPECT_EQ(status, 3);
    EXPECT_TRUE(errors.startsWith("korvel-till-window: "));
    EXPECT_TRUE(errors.contains("missing.ini"));
}

TEST_F(WindowProgramTest, AStateFolderInUseIsRefused)
{
    const auto running = givenRunningTill();
    whenTold(*running, "sale");
    QStringList options = usualOptions();
    options.first() = u"window"_s;
    whenStarted(options);
    EXPECT_EQ(status, 3) << errors.toStdString();
    whenInputEnds(*running);
}

} // namespace
