// Each law on books made by hand: a sound day, and one thing wrong with it.

#include "tests/kills/laws.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using namespace std::chrono_literals;

Json documentOf(const char *number)
{
    return {{"number", number}, {"type", 1}, {"correlationId", std::string("id-") + number},
        {"cards",
            {{{"number", "2900000000017"}, {"operationId", ""}, {"group", {{"cardMode", 23}}}}}},
        {"positions", Json::array()},
        {"effects", {{"bonusImpacts", Json::array()}, {"bonusRecords", Json::array()}}}};
}

Json bookingOf(const char *number)
{
    return {{"id", "T-1"}, {"kind", "sale"}, {"number", number}, {"card", "2900000000017"},
        {"rolledBack", false}, {"positions", Json::array()}, {"sumDiscounted", 0.0}};
}

Message messageOf(const QString &number, const QString &state, int attempts)
{
    return {u"m-"_s + number, u"id-"_s + number, state, attempts, 0, {}, "queued"};
}

/// A day on which cheque 1 was booked at once, cheque 2 by the queue, cheque 3 is parked.
class KillLawsTest : public testing::Test
{
public:
    KillLawsTest()
    {
        day.acknowledged = {u"1"_s, u"2"_s, u"3"_s};
        day.journal.closed = day.acknowledged;
        day.journal.mentioned = day.acknowledged;
        day.books.closed = {documentOf("1"), documentOf("2"), documentOf("3")};
        day.books.transactions = {bookingOf("1"), bookingOf("2")};
        day.books.cards = Json::array();
        day.books.audit = {{"problems", Json::array()}};
        day.queue = {messageOf(u"2"_s, u"delivered"_s, 2), messageOf(u"3"_s, u"parked"_s, 2)};
        day.queue.back().body = "parked";
        day.queue.back().lastCode = 81400;
        day.exchanges = {{{"request", "queued"}}, {{"request", "queued"}}, {{"request", "online"}}};
        day.sightings
            = {{"online", Backing::Document, {}, 1}, {"queued", Backing::Message, u"m-2"_s, 1}};
    }

    QStringList all() const
    {
        QStringList wrong;
        for (const laws::Law &law : laws::all)
            wrong += law.violations(day);
        return wrong;
    }

    Evidence day;
};

TEST_F(KillLawsTest, ASoundDayBreaksNone)
{
    EXPECT_EQ(all(), QStringList());
    EXPECT_EQ(waitingForPerson(day), (std::map<int, int>{{81400, 1}}));
}

TEST_F(KillLawsTest, AMessageThatIsGoneIsMissed)
{
    day.queue.pop_back();
    EXPECT_EQ(laws::acknowledgedIsKept(day).size(), 1);
}

TEST_F(KillLawsTest, ADocumentThatIsGoneIsMissed)
{
    day.books.closed.erase(day.books.closed.begin());
    EXPECT_EQ(laws::acknowledgedIsKept(day).size(), 1);
}

TEST_F(KillLawsTest, ABookingThatIsTakenBackCountsForNone)
{
    day.books.transactions.at(0)["rolledBack"] = true;
    EXPECT_EQ(laws::acknowledgedIsKept(day).size(), 1);
}

TEST_F(KillLawsTest, ADeliveredMessageWithoutABookingIsMissed)
{
    day.books.transactions.erase(1);
    EXPECT_EQ(laws::acknowledgedIsKept(day).size(), 1);
}

TEST_F(KillLawsTest, ADocumentThatTheJournalDoesNotCloseIsMissed)
{
    day.journal.closed.remove(u"3"_s);
    EXPECT_EQ(laws::journalAgrees(day).size(), 1);
}

TEST_F(KillLawsTest, ABookingThatTheJournalDoesNotKnowIsFound)
{
    day.books.transactions.push_back(bookingOf("9"));
    EXPECT_EQ(laws::journalAgrees(day).size(), 1);
}

TEST_F(KillLawsTest, ACancelledDocumentMustBeInTheJournalAndNotBooked)
{
    day.takenBack = {u"1"_s};
    EXPECT_EQ(laws::journalAgrees(day).size(), 2);
}

TEST_F(KillLawsTest, OnlyWhatIsForAPersonMayBeLeftInTheQueue)
{
    for (const QString &state : {u"refused"_s, u"parked"_s}) {
        day.queue.back().state = state;
        EXPECT_EQ(laws::booksAgree(day), QStringList());
    }
    day.queue.back().state = u"pending"_s;
    EXPECT_FALSE(laws::booksAgree(day).isEmpty());
}

TEST_F(KillLawsTest, OnlyAnOpenOrCancelledDocumentMayLeaveTheBeginningOfAFile)
{
    day.books.temporaryFiles = {u"/state/document.json.new"_s};
    EXPECT_EQ(laws::booksAgree(day), QStringList());
    day.books.temporaryFiles = {u"/state/closed/4.json.new"_s};
    EXPECT_EQ(laws::booksAgree(day).size(), 1);
    day.journal.cancelled = {u"4"_s};
    EXPECT_EQ(laws::booksAgree(day), QStringList());
}

TEST_F(KillLawsTest, ARequestThatNothingBacksIsFound)
{
    day.sightings.push_back({"sudden", Backing::Nothing, {}, 2});
    EXPECT_EQ(laws::nothingIsUnrecorded(day).size(), 1);
}

TEST_F(KillLawsTest, OneCopyMoreThanAttemptsIsFound)
{
    day.exchanges.push_back({{"request", "queued"}});
    EXPECT_EQ(laws::copiesAreAttempts(day).size(), 1);
}

TEST_F(KillLawsTest, ASecondCopyInOneStepOfTheTillIsFound)
{
    day.exchanges.push_back({{"request", "online"}});
    day.sightings.push_back(day.sightings.front());
    EXPECT_EQ(laws::copiesAreAttempts(day).size(), 1);
    ++day.sightings.back().step;
    EXPECT_EQ(laws::copiesAreAttempts(day).size(), 0);
}

TEST_F(KillLawsTest, ACopyWithOtherBytesIsFound)
{
    day.sightings.push_back({"queued ", Backing::Message, u"m-2"_s, 1});
    EXPECT_FALSE(laws::copiesAreEqual(day).isEmpty());
}

TEST_F(KillLawsTest, ExchangesEndWithinTheirLimitAndAQuarterOfASecond)
{
    day.tillsLongest = 1250ms;
    day.deliverersLongest = 15'250ms;
    EXPECT_EQ(laws::callsEndInTime(day), QStringList());
    day.tillsLongest += 1us;
    day.deliverersLongest += 1us;
    EXPECT_EQ(laws::callsEndInTime(day).size(), 2);
}

} // namespace

} // namespace kills
