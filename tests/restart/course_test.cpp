// How a scenario goes on behind a kill.

#include "tests/restart/course.h"
#include "tests/restart/laws.h"
#include "tests/support/printers.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

class CourseTest : public testing::Test
{
public:
    void givenScript(const QString &text)
    {
        m_scenario = readScenario(u"own"_s, text);
        m_scenario.folder = m_folder.path();
    }

    // Beside the script.
    void givenFile(const QString &name, const QByteArray &contents) const
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    void whenRun()
    {
        m_outcome = Course(m_scenario).run();
        EXPECT_EQ(laws::violations(m_outcome.books), QStringList());
    }

    void whenKilled(const Kill &kill)
    {
        whenRun();
        m_outcome = Course(m_scenario).run(kill, m_outcome.objects);
        EXPECT_EQ(laws::violations(m_outcome.books), QStringList());
    }

    [[nodiscard]] const Json &closed(std::size_t place = 0) const
    {
        return m_outcome.books.closed.at(place);
    }
    [[nodiscard]] const Outcome &outcome() const { return m_outcome; }

private:
    QTemporaryDir m_folder;
    Scenario m_scenario;
    Outcome m_outcome;
};

TEST_F(CourseTest, TheClockIsFrozenAgain)
{
    givenScript(u"clock 2026-03-01T12:30:00\nadd 1001\nclose\n"_s);
    whenKilled({1, Manner::After, 0});
    EXPECT_EQ(closed().at("closed"), "2026-03-01T12:30:00.000");
}

TEST_F(CourseTest, AnswersThatWereNotUsedAreGivenAgain)
{
    givenFile(
        u"own.ini"_s, "[KorvelLoyaltyOnline]\nuseConfirmation=true\nnoConfirmationBonusLimit=10\n");
    givenScript(u"answer text 4829\ncard 2900000000017\nadd 1004 2\ntotal\npoints 50\nclose\n"_s);
    whenKilled({3, Manner::After, 0});
    EXPECT_EQ(outcome().objects[4].at("dialogs").at(0).at("answer"), "4829");
    EXPECT_FALSE(closed().at("effects").at("bonusImpacts").empty());
}

TEST_F(CourseTest, AnswersThatWereUsedBeforeTheKillAreNotGivenAgain)
{
    givenFile(
        u"own.ini"_s, "[KorvelLoyaltyOnline]\nuseConfirmation=true\nnoConfirmationBonusLimit=10\n");
    givenScript(u"answer text 4829\ncard 2900000000017\nadd 1004 2\ntotal\npoints 50\n"
                "points 40\nclose\n"_s);
    // Behind its last write the payment stands.
    whenRun();
    whenKilled({4, Manner::Written, outcome().activities[4].writes});
    EXPECT_EQ(outcome().objects[5].at("dialogs").at(0).at("answer"), "cancel");
}

TEST_F(CourseTest, TheScenariosOwnServiceDataCount)
{
    givenFile(u"own.service.json"_s, R"({"cards": [{"number": "2900000000555", "balance": 7}]})");
    givenScript(u"card 2900000000555\nadd 1001\nclose\n"_s);
    whenRun();
    ASSERT_EQ(outcome().books.cards.size(), 1U);
    EXPECT_EQ(outcome().books.cards[0].at("number"), "2900000000555");
}

TEST_F(CourseTest, ACommandThatMakesNoSenseIsSkipped)
{
    givenScript(u"add 1001\nstorno 5\nadd 1002\nclose\n"_s);
    whenRun();
    ASSERT_EQ(outcome().skipped.size(), 1);
    EXPECT_TRUE(outcome().skipped[0].contains(u"no position 5"_s))
        << outcome().skipped[0].toStdString();
    EXPECT_TRUE(outcome().objects[1].is_null());
    EXPECT_EQ(closed().at("positions").size(), 2U);
}

TEST_F(CourseTest, AStoppedServiceComesBackWithItsBooks)
{
    givenScript(u"card 2900000000017\nadd 1001\ntotal\nclose\nfault stop\n"
                "card 2900000000017\nadd 1002\ntotal\nclose\n"_s);
    whenRun();
    EXPECT_EQ(outcome().books.transactions.size(), 2U);
}

TEST_F(CourseTest, FaultsThatAreLeftDoNotKeepTheQueueFromBeingDelivered)
{
    givenScript(u"fault all reset always\ncard 2900000000017\nadd 1001\nclose\n"_s);
    whenRun();
    EXPECT_EQ(outcome().books.transactions.size(), 1U);
}

TEST_F(CourseTest, ADocumentThatIsLeftOpenIsClosed)
{
    givenScript(u"card 2900000000017\nadd 1001\ntotal\npay cash 1\n"_s);
    whenRun();
    EXPECT_EQ(closed().at("state"), "closed");
}

TEST_F(CourseTest, ADocumentThatCannotBeClosedIsCancelled)
{
    givenScript(u"sale\n"_s);
    whenRun();
    EXPECT_TRUE(outcome().books.closed.empty());
}

TEST_F(CourseTest, WhatTheServiceNeverHeardOfIsGivenAgain)
{
    givenScript(u"card 2900000000017\nadd 1001\ntotal\nclose\n"_s);
    whenKilled({3, Manner::Asked, 1});
    EXPECT_EQ(outcome().objects[3].at("document").at("state"), "closed");
    EXPECT_EQ(outcome().books.ends.front().signal, SIGKILL);
}

TEST_F(CourseTest, WhatTheServiceHasBookedAlreadyIsBookedOnce)
{
    givenScript(u"card 2900000000017\nadd 1001\ntotal\nclose\n"_s);
    whenKilled({3, Manner::Acted, 1});
    EXPECT_EQ(outcome().books.transactions.size(), 1U);
}

// The till was killed when it delivered the queue behind the closed cheque.
TEST_F(CourseTest, WhatHasWorkedIsNotGivenAgain)
{
    givenScript(u"fault balance reset\ncard 2900000000017\nadd 1001\nclose\n"
                "card 2900000000017\nadd 1002\ntotal\nclose\n"_s);
    whenKilled({7, Manner::Asked, 2});
    EXPECT_TRUE(outcome().objects[7].is_null());
    EXPECT_TRUE(outcome().skipped.isEmpty());
    EXPECT_EQ(outcome().books.closed.size(), 2U);
}

TEST_F(CourseTest, WhatIsGivenUpIsNotGivenAgain)
{
    givenScript(u"card 2900000000017\nadd 1004\ntotal\npoints 50\nclose\n"_s);
    whenKilled({3, Manner::Acted, 1, false});
    EXPECT_TRUE(outcome().objects[3].is_null());
    EXPECT_TRUE(closed().at("effects").at("bonusImpacts").empty());
}

TEST_F(CourseTest, AnExchangeThatNeverComesIsTold)
{
    givenScript(u"add 1001\nclose\n"_s);
    EXPECT_THROW(whenKilled({0, Manner::Acted, 1}), std::runtime_error);
}

TEST_F(CourseTest, ATillThatEndedBeforeItWasKilledIsTold)
{
    givenScript(u"add 1001\nstorno 5\n"_s);
    EXPECT_THROW(whenKilled({1, Manner::Answered, 1}), std::runtime_error);
}

TEST_F(CourseTest, ATillThatIsEndedByAnotherSignalIsSeen)
{
    const Scenario nothing;
    const Premises premises(nothing);
    TillProcess till(premises);
    ::kill(static_cast<pid_t>(till.processId()), SIGTERM);
    ASSERT_TRUE(till.awaitEnd());
    EXPECT_EQ(till.end(false).signal, SIGTERM);
}

TEST_F(CourseTest, AStatusIsSeen)
{
    const Scenario nothing;
    const Premises premises(nothing);
    TillProcess first(premises);
    ASSERT_TRUE(first.tell(u"show"_s));
    TillProcess second(premises);
    EXPECT_FALSE(second.tell(u"show"_s));
    EXPECT_TRUE(second.awaitEnd());
    EXPECT_EQ(second.end(false).status, 3);
    EXPECT_FALSE(second.complaint().isEmpty());
}

} // namespace

} // namespace restart
