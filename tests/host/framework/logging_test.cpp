#include "host/logging/logsetup.h"
#include "tests/support/logcapture.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

class LoggingTest : public testing::Test
{
protected:
    ~LoggingTest() override { QFile::remove(pathOf(u"log.properties"_s)); }

    Log4Qt::Logger &logger() { return *Log4Qt::LogManager::logger(u"loggingtest"_s); }
    [[nodiscard]] QString pathOf(const QString &name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString logFile() const { return pathOf(u"log/korvel.log"_s); }
    void whenSetUp() { logging::setUp(pathOf(u"log"_s), {}); }
    QString givenProperties(const QByteArray &contents)
    {
        QFile file(pathOf(u"log.properties"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        return file.fileName();
    }
    static QString contentsOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
    static QString errorOf(const QString &folder, const QString &propertiesFile)
    {
        try {
            logging::setUp(folder, propertiesFile);
        } catch (const std::runtime_error &error) {
            return QString::fromUtf8(error.what());
        }
        return {};
    }

    QTemporaryDir m_folder;
};

TEST_F(LoggingTest, SaysNothingBeforeItIsSetUp)
{
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    logger().error(u"unheard"_s);

    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(LoggingTest, GivesTheSameLoggerForTheSameName)
{
    EXPECT_EQ(&logger(), Log4Qt::LogManager::logger(u"loggingtest"_s));
    EXPECT_NE(&logger(), Log4Qt::LogManager::logger(u"other"_s));
    EXPECT_EQ(logger().name(), u"loggingtest"_s);
}

TEST_F(LoggingTest, WritesTimeLevelLoggerAndMessage)
{
    whenSetUp();
    logger().info(u"Запрос к бонусной системе"_s);

    const QRegularExpression line(
        u"^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d,\\d{3} INFO  loggingtest - Запрос к бонусной системе\n$"_s);
    EXPECT_TRUE(line.match(contentsOf(logFile())).hasMatch())
        << contentsOf(logFile()).toStdString();
}

TEST_F(LoggingTest, WritesEveryLevel)
{
    whenSetUp();
    logger().debug(u"1"_s);
    logger().info(u"2"_s);
    logger().warn(u"3"_s);
    logger().error(u"4"_s);

    const QString log = contentsOf(logFile());
    for (const QString &part : {u"DEBUG loggingtest - 1"_s, u"INFO  loggingtest - 2"_s,
             u"WARN  loggingtest - 3"_s, u"ERROR loggingtest - 4"_s})
        EXPECT_TRUE(log.contains(part)) << part.toStdString();
}

TEST_F(LoggingTest, WritesOneLineForEachMessage)
{
    const LogCapture log(u"loggingtest.lines"_s);
    Log4Qt::LogManager::logger(u"loggingtest.lines"_s)->info(u"a\r\nb\tc\x1B[0m\u0085\u2028d"_s);

    EXPECT_EQ(log.lines(), QStringList{u"INFO a\\r\\nb\tc\\u001b[0m\\u0085\\u2028d"_s});
}

TEST_F(LoggingTest, NobodyElseCanReadTheFiles)
{
    constexpr int linesBeyondOneFile = 1200;
    constexpr auto ownerOnly
        = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    whenSetUp();
    for (int i = 0; i < linesBeyondOneFile; ++i)
        logger().info(QString(1000, u'x'));

    for (const QString &path : {logFile(), QString(logFile() + u".1")})
        EXPECT_EQ(QFileInfo(path).permissions(), ownerOnly) << path.toStdString();
}

TEST_F(LoggingTest, NobodyElseCanLookIntoTheFolder)
{
    constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
        | QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;
    whenSetUp();

    EXPECT_EQ(QFileInfo(pathOf(u"log"_s)).permissions(), ownerOnly);
}

TEST_F(LoggingTest, TakesAnOlderFileFromEverybodyElse)
{
    whenSetUp();
    QFile::setPermissions(logFile(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
    whenSetUp();

    EXPECT_FALSE(QFileInfo(logFile()).permission(QFile::ReadOther));
}

TEST_F(LoggingTest, KeepsFiveFilesOfAMebibyteAtMost)
{
    constexpr int manyLines = 7000;
    constexpr qint64 maxBytes = 1024 * 1024 + 2000;
    whenSetUp();
    for (int i = 0; i < manyLines; ++i)
        logger().info(QString(1000, u'x'));

    const auto files = QDir(pathOf(u"log"_s)).entryInfoList(QDir::Files);
    EXPECT_EQ(files.size(), 5);
    for (const QFileInfo &file : files)
        EXPECT_LT(file.size(), maxBytes);
}

TEST_F(LoggingTest, AppendsToWhatIsThere)
{
    whenSetUp();
    logger().info(u"first"_s);
    whenSetUp();
    logger().info(u"second"_s);

    EXPECT_EQ(contentsOf(logFile()).count(u'\n'), 2);
}

TEST_F(LoggingTest, FollowsAPropertiesFile)
{
    const QString target = pathOf(u"own.log"_s);
    logging::setUp(pathOf(u"log"_s),
        givenProperties("log4cplus.rootLogger=WARN, FILE\n"
                        "log4cplus.appender.FILE=log4cplus::FileAppender\n"
                        "log4cplus.appender.FILE.File="
            + target.toUtf8()
            + "\nlog4cplus.appender.FILE.layout=log4cplus::PatternLayout\n"
              "log4cplus.appender.FILE.layout.ConversionPattern=%p %m%n\n"));
    logger().info(u"unheard"_s);
    logger().warn(u"heard"_s);
    whenSetUp();

    EXPECT_EQ(contentsOf(target), u"WARN heard\n"_s);
}

TEST_F(LoggingTest, APropertiesFileThatCannotBeReadIsNamed)
{
    EXPECT_EQ(errorOf({}, u"/no/such.properties"_s),
        u"/no/such.properties: настройки журнала не читаются; проверьте путь и права доступа"_s);
}

TEST_F(LoggingTest, APropertiesFileThatCannotBeUsedIsNamed)
{
    const QString path = givenProperties("log4cplus.rootLogger=INFO, NONE\n"
                                         "log4cplus.appender.NONE=log4cplus::NoSuchAppender\n");
    testing::internal::CaptureStderr();
    const QString error = errorOf({}, path);
    logger().error(u"unheard"_s);

    EXPECT_TRUE(error.startsWith(path + u": настройки журнала не годятся; исправьте их: "));
    EXPECT_TRUE(error.contains(u"NoSuchAppender"_s));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(LoggingTest, AFolderThatCannotBeMadeIsNamed)
{
    const QString error = errorOf(u"/proc/korvel"_s, {});

    EXPECT_TRUE(error.startsWith(u"/proc/korvel: папка не создаётся")) << qPrintable(error);
}

TEST_F(LoggingTest, AFolderThatCannotBeWrittenToIsNamed)
{
    EXPECT_EQ(errorOf(u"/proc"_s, {}),
        u"/proc/korvel.log: журнал не записывается; проверьте, что в его папку можно писать"_s);
}

} // namespace
