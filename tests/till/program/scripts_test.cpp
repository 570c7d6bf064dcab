// Scripts and what comes out of them.

#include "tests/till/program/programfixture.h"

#include <QDirIterator>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class ScriptsTest : public ProgramFixture
{
public:
    /// Everything that the program left in the folder of this test.
    QByteArray everythingWritten() const
    {
        QByteArray all;
        QDirIterator files(
            path(u"state"_s), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (file.open(QIODevice::ReadOnly))
                all += file.readAll();
        }
        return all;
    }
};

TEST_F(ScriptsTest, ASaleFromTheFirstCardToTheLastReceipt)
{
    whenScriptRuns("card 2900000000017\nadd 1002\ntotal\nclose\n"
                   "expect document.sumDiscounted == 90\nexpect document.state == closed\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_EQ(errors, "");
    ASSERT_EQ(transcript().size(), 4);
    EXPECT_EQ(transcript()[3]["document"]["number"], "17");
    EXPECT_EQ(transcript()[3]["trace"].dump(), R"(["event 72","event 73","event 10","event 22"])");
}

TEST_F(ScriptsTest, AnObjectHasItsMembersInOrder)
{
    whenScriptRuns("show\n");
    EXPECT_TRUE(output.startsWith(R"({"line":1,"command":"show","result":null,"refusal":null,)"
                                  R"("dialogs":[],"events":[],"printed":[],"notices":[)"));
    EXPECT_TRUE(output.endsWith(R"(],"trace":[],"document":null})"
                                "\n"));
}

TEST_F(ScriptsTest, AShiftWithOpenEndsIsStatus1AndTheScriptGoesOn)
{
    whenScriptRuns("card 2900000000017\nadd 1002\nclose\nclose-shift\nadd 1002\nclose\n");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(errors, "");
    ASSERT_EQ(transcript().size(), 6);
    const std::string notices = transcript()[3]["notices"].dump();
    EXPECT_NE(notices.find("Не подтверждена продажа 17 от "), std::string::npos) << notices;
}

TEST_F(ScriptsTest, AShiftWithoutOpenEndsIsStatus0)
{
    whenScriptRuns("add 1002\nclose\nclose-shift\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
}

TEST_F(ScriptsTest, AWrongCommandBehindOpenEndsIsStatus2)
{
    whenScriptRuns("card 2900000000017\nadd 1002\nclose\nclose-shift\nnonsense\n");
    EXPECT_EQ(status, 2);
}

TEST_F(ScriptsTest, AFailedExpectationIsStatus1AndTheScriptGoesOn)
{
    whenScriptRuns("add 1001\nexpect document.sum == 1\nadd 1002\n");
    EXPECT_EQ(status, 1);
    EXPECT_EQ(QString::fromUtf8(errors),
        path(u"sale.till"_s) + u":2: expected document.sum == 1, but it is 45.9\n");
    EXPECT_EQ(transcript().size(), 2);
}

TEST_F(ScriptsTest, AnErrorIsStatus2WithFileAndLineAndTheScriptStops)
{
    whenScriptRuns("# a comment\nadd 77\nadd 1001\n");
    thenFails(2, path(u"sale.till"_s) + u":2: the catalogue has no article 77; ");
    EXPECT_EQ(output, "");
}

TEST_F(ScriptsTest, StandardInputIsNamedInErrors)
{
    whenStarted(usualOptions(), "\nclose\n");
    thenFails(2, u"<stdin>:2: no document is open; "_s);
}

TEST_F(ScriptsTest, ARefusalIsAnOutcome)
{
    whenScriptRuns("card 2900000000099\nexpect refusal.text == 'Карта заблокирована'\n"
                   "expect refusal.flag == true\nexpect result == false\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
}

TEST_F(ScriptsTest, WhateverThePluginThrowsTheSaleGoesOn)
{
    whenScriptRuns("card 2900000000098\nexpect refusal exists\nadd 1001\nclose\n"
                   "expect document.state == closed\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
    EXPECT_TRUE(everythingWritten().contains("\"exception\""));
}

TEST_F(ScriptsTest, WithoutATranscriptTheStoryIsToldWithoutColours)
{
    whenStarted(usualOptions() << givenFile(u"s.till"_s, "add 1001\n"));
    EXPECT_EQ(output, "> add 1001\n    1. Хлеб: 1 x 45.90 = 45.90\n");
}

TEST_F(ScriptsTest, WithATranscriptFileTheStoryIsToldToo)
{
    whenStarted(usualOptions() << u"--transcript"_s << path(u"t"_s), "add 1001\n");
    EXPECT_TRUE(output.startsWith("> add 1001\n"));
    QFile file(path(u"t"_s));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith(R"({"line":1,"command":"add 1001",)"));
}

TEST_F(ScriptsTest, TheTranscriptIsFlushedCommandByCommand)
{
    const auto till = givenRunningTill();
    EXPECT_EQ(whenTold(*till, "add 1001")["document"]["sum"], 45.9);
    EXPECT_EQ(whenTold(*till, "add 1002")["document"]["sum"], 145.9);
    EXPECT_EQ(whenInputEnds(*till), 0);
}

TEST_F(ScriptsTest, APasswordIsInNoFile)
{
    givenFile(u"till.ini"_s,
        "[Till]\ncatalogue=catalogue.json\n[KorvelLoyaltyOnline]\nuser=u\npassword=Geheim77\n");
    whenScriptRuns("card 2900000000017\nadd 1001\ntotal\nclose\n");
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(everythingWritten().isEmpty());
    EXPECT_FALSE(everythingWritten().contains("Geheim77"));
}

} // namespace
