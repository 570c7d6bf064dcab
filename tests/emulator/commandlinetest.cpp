#include "tests/emulator/support/serviceprocess.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

constexpr int exitWrongUse = 2;

class CommandLineTest : public testing::Test
{
protected:
    /// The one line on standard error of a start that fails.
    static std::string whenRefused(const QStringList &arguments)
    {
        const FinishedRun run = runService(arguments);
        EXPECT_EQ(run.status, exitWrongUse);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors.count('\n'), 1) << run.errors.constData();
        EXPECT_TRUE(run.errors.startsWith("korvel-service: "));
        return run.errors.toStdString();
    }

    QString givenFile(const QByteArray &content)
    {
        QFile file(directory.filePath(u"file"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    QTemporaryDir directory;
};

TEST_F(CommandLineTest, PrintsOneLineWhenReady)
{
    ServiceProcess service;
    EXPECT_THAT(
        service.url().toStdString(), testing::MatchesRegex("http://127\\.0\\.0\\.1:[0-9]+/"));
    EXPECT_EQ(service.terminate(), 0);
    EXPECT_EQ(service.standardOutput().count('\n'), 1);
}

TEST_F(CommandLineTest, ListensOnIpv6)
{
    const ServiceProcess service({u"--listen"_s, u"[::1]:0"_s});
    EXPECT_TRUE(service.url().startsWith(u"http://[::1]:"));
}

TEST_F(CommandLineTest, HelpsAndTellsItsVersion)
{
    const FinishedRun help = runService({u"--help"_s});
    EXPECT_EQ(help.status, 0);
    for (const char *option : {"--listen", "--data", "--state", "--user", "--password-file",
             "--tls-cert", "--tls-key", "--fault"})
        EXPECT_THAT(help.output.toStdString(), HasSubstr(option));
    EXPECT_THAT(runService({u"--version"_s}).output.toStdString(),
        testing::MatchesRegex("korvel-service [0-9]+\\.[0-9]+\\.[0-9]+[+.a-z0-9]*\n"));
}

TEST_F(CommandLineTest, TakesItsDataFromAFile)
{
    const QString data = givenFile(R"({"cards": [{"number": "1"}]})");
    ServiceProcess service({u"--data"_s, data});
    EXPECT_EQ(service.terminate(), 0);
}

TEST_F(CommandLineTest, ExplainsWrongOptions)
{
    EXPECT_THAT(whenRefused({u"--nonsense"_s}), HasSubstr("--nonsense"));
    EXPECT_THAT(whenRefused({u"--user"_s, u"u"_s}), HasSubstr("--password-file"));
    EXPECT_THAT(whenRefused({u"--tls-key"_s, u"k"_s}), HasSubstr("--tls-cert"));
    EXPECT_THAT(whenRefused({u"--listen"_s, u"8080"_s}), HasSubstr("\"8080\""));
    EXPECT_THAT(whenRefused({u"--listen"_s, u"shop:80"_s}), HasSubstr("\"shop\""));
    EXPECT_THAT(whenRefused({u"--fault"_s, u"soft lse"_s}), HasSubstr("\"lse\""));
    EXPECT_THAT(whenRefused({u"--fault"_s, u"stop"_s}), HasSubstr("\"stop\""));
}

TEST_F(CommandLineTest, ExplainsFilesThatCannotBeUsed)
{
    const QString missing = directory.filePath(u"missing/file"_s);
    EXPECT_THAT(whenRefused({u"--data"_s, missing}), HasSubstr(missing.toStdString()));
    EXPECT_THAT(whenRefused({u"--state"_s, missing}), HasSubstr(missing.toStdString()));
    EXPECT_THAT(whenRefused({u"--user"_s, u"u"_s, u"--password-file"_s, missing}),
        HasSubstr(missing.toStdString()));
    EXPECT_THAT(whenRefused({u"--tls-cert"_s, missing, u"--tls-key"_s, missing}),
        HasSubstr(missing.toStdString()));
}

TEST_F(CommandLineTest, ExplainsWrongData)
{
    const QString broken = givenFile("{\n\"cards\": [,]}");
    EXPECT_THAT(whenRefused({u"--data"_s, broken}),
        HasSubstr(broken.toStdString() + ": line 2, column 11: syntax error"));
    const QString wrong = givenFile(R"({"cards": [{"number": 1}]})");
    EXPECT_THAT(whenRefused({u"--data"_s, wrong}),
        HasSubstr(wrong.toStdString() + ": /cards/0/number: expected a text"));
}

TEST_F(CommandLineTest, ExplainsAPortInUse)
{
    const ServiceProcess service;
    const QString address = service.url().section(u'/', 2, 2);
    EXPECT_THAT(whenRefused({u"--listen"_s, address}), HasSubstr("Address already in use"));
}

} // namespace
} // namespace emulator
