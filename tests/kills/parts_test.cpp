// What a run is made of: luck, plan, customers, and the looks into the till's books.

#include "tests/kills/journalbook.h"
#include "tests/kills/plan.h"
#include "tests/kills/queuebook.h"
#include "tests/kills/shopping.h"
#include "tests/kills/trouble.h"
#include "tests/kills/witness.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

TEST(DiceTest, FallTheSameForTheSameSeedAndDay)
{
    const auto row = [](quint32 seed, quint32 day) {
        Dice dice(seed, day);
        QList<quint32> numbers;
        for (int time = 0; time < 8; ++time)
            numbers.append(dice.below(1000));
        return numbers;
    };
    EXPECT_EQ(row(1, 2), row(1, 2));
    EXPECT_NE(row(1, 2), row(2, 2));
    EXPECT_NE(row(1, 2), row(1, 3));
}

TEST(DiceTest, FallNeverOrAlwaysWhereThatIsWanted)
{
    Dice dice(1, 1);
    for (int time = 0; time < 200; ++time) {
        EXPECT_FALSE(dice.falls(0));
        EXPECT_TRUE(dice.falls(100));
    }
}

struct Counted
{
    int days = 0;
    int cheques = 0;
    int kills = 0;
};

Counted counted(const Plan &plan)
{
    Counted counted;
    for (const DayPlan &day : daysOf(plan)) {
        EXPECT_EQ(day.day, static_cast<quint32>(counted.days++));
        EXPECT_EQ(day.seed, plan.seed);
        counted.cheques += static_cast<int>(day.isStruck.size());
        counted.kills
            += static_cast<int>(std::count(day.isStruck.begin(), day.isStruck.end(), true));
    }
    return counted;
}

TEST(PlanTest, DaysHaveAllChequesAndAllKills)
{
    for (const Plan &plan :
        {Plan{1, 0, 3, {}}, Plan{1, 1, 3, {}}, Plan{41, 25, 3, {}}, Plan{2000, 1000, 3, {}}}) {
        const Counted found = counted(plan);
        EXPECT_EQ(found.cheques, static_cast<int>(plan.cheques));
        EXPECT_EQ(found.kills, static_cast<int>(plan.kills));
        EXPECT_EQ(found.days, static_cast<int>(plan.cheques + 19) / 20);
    }
}

TEST(PlanTest, OneDayIsTheSameAsAmongTheOthers)
{
    Plan plan{100, 33, 3, {}};
    const auto days = daysOf(plan);
    plan.onlyDay = 2;
    const auto only = daysOf(plan);
    ASSERT_EQ(only.size(), 1u);
    EXPECT_EQ(only.front().day, 2u);
    EXPECT_EQ(only.front().isStruck, days.at(2).isStruck);
}

TEST(PlanTest, StrikesMeetEverybodyInEveryManner)
{
    Dice dice(1, 1);
    QSet<int> found;
    for (int time = 0; time < 500; ++time) {
        const Strike one = strike(dice);
        EXPECT_GE(one.occasion, 1);
        found.insert(static_cast<int>(one.victim) * 10 + static_cast<int>(one.manner));
    }
    EXPECT_EQ(found.size(), 8);
}

TEST(ShoppingTest, SalesEndAndHoldEverythingThatIsToBeTried)
{
    Dice dice(1, 1);
    QString all;
    for (int time = 0; time < 300; ++time) {
        const QStringList commands = sale(dice);
        EXPECT_TRUE(commands.constLast() == u"close" || commands.constLast() == u"cancel");
        // Without a calculation the service would grant what the customer is not given.
        EXPECT_TRUE(!commands.constFirst().startsWith(u"card") || commands.contains(u"total"_s));
        all += commands.join(u'\n') + u'\n';
    }
    for (const QString &word : {u"card "_s, u"add "_s, u"MARKDOWN"_s, u"coupon "_s, u"storno "_s,
             u"total"_s, u"points"_s, u"answer text 4829"_s, u"answer text 0000"_s, u"answer ok"_s,
             u"answer cancel"_s, u"pay card"_s, u"close"_s, u"cancel"_s})
        EXPECT_TRUE(all.contains(word)) << word.toStdString();
}

Json soldDocument()
{
    return {{"number", "7"}, {"refersTo", ""},
        {"positions",
            {{{"number", 1}, {"sums", {{"quantity", 3.0}}}},
                {{"number", 2}, {"sums", {{"quantity", 0.5}}}}}}};
}

TEST(ShoppingTest, WhatHasComeBackIsNotLeft)
{
    const Json back = {{"number", "8"}, {"refersTo", "7"},
        {"positions", {{{"number", 1}, {"sums", {{"quantity", 2.0}}}}}}};
    const Json other = {{"number", "9"}, {"refersTo", "6"},
        {"positions", {{{"number", 1}, {"sums", {{"quantity", 1.0}}}}}}};
    EXPECT_EQ(
        left(soldDocument(), {soldDocument(), back, other}), (Quantities{{1, 1.0}, {2, 0.5}}));
}

TEST(ShoppingTest, NoMoreThanIsLeftComesBackAndSomethingDoes)
{
    const Json document
        = {{"positions", {{{"number", 1}, {"quantity", 3.0}}, {{"number", 2}, {"quantity", 0.5}}}}};
    Dice dice(1, 1);
    QSet<QString> found;
    for (int time = 0; time < 200; ++time)
        found.insert(returned(dice, document, {{1, 2.0}, {2, 0.0}}).join(u';'));
    EXPECT_EQ(found,
        (QSet<QString>{u"quantity 1 2;storno 2;close"_s, u"quantity 1 2;storno 2;cancel"_s,
            u"quantity 1 1;storno 2;close"_s, u"quantity 1 1;storno 2;cancel"_s}));
}

TEST(TroubleTest, KnowsWhetherTheServiceHasActed)
{
    for (const char *acted : {"fiscal lose", "return half", "soft delay 1500"})
        EXPECT_TRUE(trouble::isActedUpon(acted));
    for (const char *spared : {"fiscal swallow", "fiscal reset", "all status 503"})
        EXPECT_FALSE(trouble::isActedUpon(spared));
}

/// A till's folder with what its books are to say.
class TillsBooksTest : public testing::Test
{
public:
    void write(const QString &name, const QByteArray &contents) const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    void givenMessage(const QByteArray &state, const QByteArray &body) const
    {
        ASSERT_TRUE(QDir(folder.path()).mkpath(u"queue"_s));
        {
            auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"books"_s);
            database.setDatabaseName(folder.filePath(u"queue/queue.sqlite"_s));
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            ASSERT_TRUE(query.exec(
                u"CREATE TABLE messages (number INTEGER PRIMARY KEY, id, correlation_id, "
                u"state, attempts, last_code, last_error, body)"_s));
            ASSERT_TRUE(
                query.exec(QString::fromLatin1("INSERT INTO messages VALUES (1, 'm-1', 'id-1', '"
                    + state + "', 2, 503, 'away', '" + body + "')")));
        }
        QSqlDatabase::removeDatabase(u"books"_s);
    }

    [[nodiscard]] Sighting seen(const QByteArray &body) const
    {
        Witness witness(folder.path());
        witness.nextStep();
        witness.see("POST / HTTP/1.1\r\n\r\n" + body);
        EXPECT_EQ(witness.sightings().size(), 1u);
        return witness.sightings().front();
    }

    static QByteArray request(const QByteArray &operation, const QByteArray &number = "7")
    {
        return "<ChequeRequest ChequeType=\"Fiscal\"><OperationType>" + operation
            + "</OperationType><Number>" + number + "</Number></ChequeRequest>";
    }

    QTemporaryDir folder;
};

TEST_F(TillsBooksTest, JournalTellsWhatWasClosedAndCancelled)
{
    write(u"journal.jsonl"_s,
        "{\"document\":\"1\",\"code\":10}\n{\"document\":\"2\",\"code\":12}\n{torn\n"
        "{\"document\":\"3\",\"code\":72}\n{\"document\":null,\"code\":10}\n");
    const auto book = journalBook(folder.path());
    EXPECT_EQ(book.closed, QSet<QString>{u"1"_s});
    EXPECT_EQ(book.cancelled, QSet<QString>{u"2"_s});
    EXPECT_EQ(book.mentioned, (QSet<QString>{u"1"_s, u"2"_s, u"3"_s}));
}

TEST_F(TillsBooksTest, QueueTellsItsMessages)
{
    EXPECT_TRUE(queueBook(folder.path()).empty());
    givenMessage("parked", "body");
    const auto queue = queueBook(folder.path());
    ASSERT_EQ(queue.size(), 1u);
    EXPECT_EQ(queue.front().id, u"m-1"_s);
    EXPECT_EQ(queue.front().correlationId, u"id-1"_s);
    EXPECT_EQ(queue.front().state, u"parked"_s);
    EXPECT_EQ(queue.front().attempts, 2);
    EXPECT_EQ(queue.front().lastCode, 503);
    EXPECT_EQ(queue.front().lastError, u"away"_s);
    EXPECT_EQ(queue.front().body, "body");
    EXPECT_FALSE(queue.front().isDelivered());
}

TEST_F(TillsBooksTest, QuestionsNeedNothingOnDisk)
{
    EXPECT_EQ(seen("<ChequeRequest ChequeType=\"Soft\"/>").backing, Backing::Question);
    EXPECT_EQ(seen(request("Sale")).backing, Backing::Nothing);
}

TEST_F(TillsBooksTest, AMessageBacksWhatGoesOutOnlyWhileItIsBeingSent)
{
    givenMessage("sending", request("Sale"));
    EXPECT_EQ(seen(request("Sale")).backing, Backing::Message);
    EXPECT_EQ(seen(request("Sale")).message, u"m-1"_s);
    EXPECT_EQ(seen(request("Sale") + ' ').message, u"m-1"_s);
    EXPECT_EQ(seen(request("Sale", "8")).backing, Backing::Nothing);
    EXPECT_EQ(seen(request("Return")).backing, Backing::Nothing);
}

TEST_F(TillsBooksTest, AMessageThatWaitsBacksNothing)
{
    givenMessage("pending", request("Sale"));
    EXPECT_EQ(seen(request("Sale")).backing, Backing::Nothing);
}

TEST_F(TillsBooksTest, ADocumentBacksWhatItSaysToHaveBegun)
{
    write(u"document.json"_s, "{\"number\": \"7\"}");
    EXPECT_EQ(seen(request("Sale")).backing, Backing::Nothing);
    EXPECT_EQ(seen(request("Return")).backing, Backing::Nothing);
    EXPECT_EQ(seen(request("Rollback")).backing, Backing::Nothing);
    write(u"document.json"_s, "{\"number\": \"7\", \"registrationBegun\": true}");
    EXPECT_EQ(seen(request("Sale")).backing, Backing::Document);
    EXPECT_EQ(seen(request("Return")).backing, Backing::Document);
    EXPECT_EQ(seen(request("Sale", "8")).backing, Backing::Nothing);
    EXPECT_EQ(seen(request("Rollback")).backing, Backing::Nothing);
    write(u"document.json"_s, "{\"number\": \"7\", \"bookingUnknown\": true}");
    EXPECT_EQ(seen(request("Rollback")).backing, Backing::Document);
}

} // namespace

} // namespace kills
