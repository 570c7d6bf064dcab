// The house stands on its floors: includes run downwards only.

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

namespace {

struct Floor
{
    const char *folder;
    QStringList mayInclude;
};

// What each floor may name by a path from the root of the tree.
const QList<Floor> floors{
    {"host", {QStringLiteral("host")}},
    {"common", {QStringLiteral("common"), QStringLiteral("host")}},
    {"client", {QStringLiteral("client"), QStringLiteral("common")}},
    {"plugin", {QStringLiteral("plugin"), QStringLiteral("client"), QStringLiteral("common")}},
    {"till", {QStringLiteral("till"), QStringLiteral("host")}},
    {"emulator", {QStringLiteral("emulator")}},
    {"simulation", {QStringLiteral("simulation"), QStringLiteral("host")}},
};

QStringList floorNames()
{
    QStringList names;
    for (const Floor &floor : floors)
        names.append(QString::fromLatin1(floor.folder));
    return names;
}

QStringList includesOf(const QString &fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(fileName);
    static const QRegularExpression include(
        QStringLiteral("^\\s*#\\s*include\\s*[<\"]([^/\">]+)/[^\">]*[>\"]"),
        QRegularExpression::MultilineOption);
    QStringList folders;
    auto matches = include.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext())
        folders.append(matches.next().captured(1));
    return folders;
}

QStringList sourcesOf(const QString &folder)
{
    QStringList names;
    QDirIterator files(QStringLiteral(KORVEL_SOURCE_DIR "/") + folder,
        {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext())
        names.append(files.next());
    return names;
}

void PrintTo(const Floor &floor, std::ostream *out)
{
    *out << floor.folder;
}

class FloorsTest : public testing::TestWithParam<Floor>
{ };

TEST_P(FloorsTest, IncludesRunDownwardsOnly)
{
    const QStringList sources = sourcesOf(QString::fromLatin1(GetParam().folder));
    ASSERT_FALSE(sources.isEmpty());
    for (const QString &source : sources)
        for (const QString &folder : includesOf(source))
            EXPECT_TRUE(!floorNames().contains(folder) || GetParam().mayInclude.contains(folder))
                << qPrintable(source) << " includes from " << qPrintable(folder);
}

// By the folder it would always be the stand-in, also where the system has the library.
TEST_P(FloorsTest, LoggingIsNamedAsTheLibraryNamesIt)
{
    for (const QString &source : sourcesOf(QString::fromLatin1(GetParam().folder))) {
        QFile file(source);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(source);
        EXPECT_FALSE(file.readAll().contains("host/logging/log4qt")) << qPrintable(source);
    }
}

INSTANTIATE_TEST_SUITE_P(EveryFloor, FloorsTest, testing::ValuesIn(floors),
    [](const auto &floor) { return floor.param.folder; });

} // namespace
