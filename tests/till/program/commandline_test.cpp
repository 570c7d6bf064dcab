// The command line.

#include "tests/till/program/programfixture.h"

using namespace Qt::StringLiterals;

namespace {

class CommandLineTest : public ProgramFixture
{ };

TEST_F(CommandLineTest, HelpNamesTheOptions)
{
    whenStarted({u"run"_s, u"--help"_s});
    EXPECT_EQ(status, 0);
    for (const char *option : {"--config", "--plugin", "--state", "--transcript", "SCRIPT"})
        EXPECT_TRUE(output.contains(option)) << option;
}

TEST_F(CommandLineTest, HelpSpeaksTheLanguageOfTheSystem)
{
    whenStarted({u"--help"_s});
    EXPECT_TRUE(output.startsWith("A till that sells cheques with the loyalty plug-in.\n"
                                  "Usage: korvel-till [OPTIONS] COMMAND\n\nOptions:\n"))
        << output.constData();
    EXPECT_TRUE(output.contains("prints this help and ends"));
    EXPECT_TRUE(output.contains("\nCommands:\n"));
    givenSystemLanguage(u"ru_RU.UTF-8"_s);
    whenStarted({u"run"_s, u"--help"_s});
    EXPECT_TRUE(output.startsWith("продаёт по сценарию или по командам с клавиатуры\n"
                                  "Вызов: korvel-till run [ПАРАМЕТРЫ] [script]\n\nАргументы:\n"))
        << output.constData();
    EXPECT_TRUE(output.contains("\nПараметры:\n  -h,--help                   выводит эту справку"));
    EXPECT_TRUE(output.contains("настройки; без него till.ini"));
}

TEST_F(CommandLineTest, VersionIsTold)
{
    whenStarted({u"--version"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(output.startsWith("korvel-till "));
}

TEST_F(CommandLineTest, WrongUsageIsAnError)
{
    for (const QStringList &arguments :
        {QStringList{}, QStringList{u"sell"_s}, QStringList{u"run"_s, u"--bogus"_s},
            QStringList{u"run"_s, u"--config"_s}, QStringList{u"run"_s, u"one"_s, u"two"_s}}) {
        SCOPED_TRACE(qPrintable(arguments.join(u' ')));
        whenStarted(arguments);
        thenFails(2, u"korvel-till: "_s);
    }
}

TEST_F(CommandLineTest, CommandsAreNamedWhereOneIsMissingOrUnknown)
{
    const QByteArray commands
        = "; it is one of run, window, queue, check, accept, explain; see korvel-till --help\n";
    whenStarted({});
    EXPECT_EQ(errors, "korvel-till: a command is missing" + commands);
    whenStarted({u"sell"_s});
    EXPECT_EQ(errors, "korvel-till: \"sell\" is no command" + commands);
    whenStarted({u"queue"_s});
    EXPECT_TRUE(errors.startsWith("korvel-till: a command is missing; it is one of list, status"));
    whenStarted({u"queue"_s, u"lst"_s});
    EXPECT_TRUE(errors.startsWith("korvel-till: \"lst\" is no command; it is one of list, "));
}

TEST_F(CommandLineTest, AWordThatIsMissingOrTooManyIsNamed)
{
    struct Row
    {
        QStringList words;
        QByteArray complaint;
    };
    const QList<Row> rows{
        {{u"queue"_s, u"show"_s}, "the argument \"id\" is missing"},
        {{u"run"_s, u"--config"_s}, "the value of --config is missing"},
        {{u"check"_s, u"--card"_s, u"1"_s, u"--no-service"_s},
            "--card and --no-service do not go together"},
        {{u"accept"_s, u"--timeout"_s, u"0"_s}, "the value does not fit --timeout"},
        {{u"accept"_s, u"--timeout"_s, u"soon"_s}, "the value does not fit --timeout"},
        {{u"run"_s, u"--bogus"_s}, "unexpected word \"--bogus\""},
        {{u"run"_s, u"one"_s, u"two"_s}, "unexpected word \"two\""},
    };
    for (const Row &row : rows) {
        whenStarted(row.words);
        EXPECT_EQ(errors, "korvel-till: " + row.complaint + "; see korvel-till --help\n");
    }
}

TEST_F(CommandLineTest, AScriptThatCannotBeReadIsAnError)
{
    whenStarted(usualOptions() << path(u"missing.till"_s));
    thenFails(2, u"korvel-till: the script "_s + path(u"missing.till"_s));
    whenStarted(usualOptions() << path(u"."_s));
    thenFails(2, u"korvel-till: the script "_s);
}

TEST_F(CommandLineTest, ATranscriptThatCannotBeWrittenIsAnError)
{
    whenStarted(usualOptions() << u"--transcript"_s << path(u"missing/x"_s));
    thenFails(2, u"korvel-till: the transcript "_s + path(u"missing/x"_s));
}

} // namespace
