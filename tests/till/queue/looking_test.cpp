// list, status and show.

#include "host/queue/queueoffice.h"
#include "tests/till/queue/queueprogramfixture.h"

#include <gmock/gmock.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class LookingTest : public QueueProgramFixture
{
public:
    void givenOneOfEach()
    {
        givenMessage(u"aa-1"_s);
        givenMessage(u"bb-2"_s, MessageState::Delivered);
        givenMessage(u"cc-3"_s, MessageState::Refused);
        givenMessage(u"cc-4"_s, MessageState::Parked);
    }
    std::vector<std::string> idsOf(const QStringList &words)
    {
        std::vector<std::string> ids;
        for (const auto &message : whenAskedForJson(words))
            ids.push_back(message["id"]);
        return ids;
    }
    void givenMessageOfAge(int minutes)
    {
        QueueMessage old = makeMessage(u"old"_s);
        old.enqueued = old.enqueued.addSecs(-60 * minutes - 30);
        givenMessage(old);
    }
};

TEST_F(LookingTest, ListHasWhatIsNotDelivered)
{
    givenOneOfEach();
    EXPECT_THAT(idsOf({u"list"_s}), testing::ElementsAre("aa-1", "cc-3", "cc-4"));
    EXPECT_THAT(
        idsOf({u"list"_s, u"--all"_s}), testing::ElementsAre("aa-1", "bb-2", "cc-3", "cc-4"));
    EXPECT_THAT(idsOf({u"list"_s, u"--state-of"_s, u"parked"_s, u"delivered"_s}),
        testing::ElementsAre("bb-2", "cc-4"));
    EXPECT_THAT(
        idsOf({u"list"_s, u"--all"_s, u"--state-of"_s, u"parked"_s}), testing::ElementsAre("cc-4"));
}

TEST_F(LookingTest, EntriesOfTheListHaveTheseMembersAndNoOthers)
{
    QueueMessage message = makeMessage(u"aa"_s);
    message.attempts = 3;
    message.lastCode = 503;
    message.lastError = u"занято"_s;
    message.enqueued = QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9), Qt::UTC);
    message.nextAttempt = message.enqueued.addSecs(60);
    givenMessage(message);
    EXPECT_EQ(whenAskedForJson({u"list"_s}),
        nlohmann::json::parse(R"([{"id": "aa", "queue": "korvelloyaltyonline",
            "state": "pending", "attempts": 3, "enqueued": "2024-03-05T17:04:09Z",
            "nextAttempt": "2024-03-05T17:05:09Z", "lastError": "занято", "code": 503}])"));
}

TEST_F(LookingTest, WhatIsNotToBeSentHasNoNextAttempt)
{
    givenMessage(u"aa"_s, MessageState::Refused);
    EXPECT_TRUE(whenAskedForJson({u"list"_s})[0]["nextAttempt"].is_null());
}

TEST_F(LookingTest, AnEmptyListIsAnEmptyArray)
{
    EXPECT_EQ(whenAskedForJson({u"list"_s}), nlohmann::json::array());
    EXPECT_EQ(status, 0);
}

TEST_F(LookingTest, MoreThanAPageIsListedInOrder)
{
    const int count = 2 * QueueOffice::Page().size + 1;
    std::vector<std::string> wanted;
    {
        MessageStore store(databaseFile());
        QList<QueueMessage> messages;
        for (int number = 0; number < count; ++number) {
            messages.append(makeMessage(u"id-%1"_s.arg(number)));
            wanted.push_back(messages.constLast().id.toStdString());
        }
        store.takeIn(messages);
    }
    EXPECT_EQ(idsOf({u"list"_s}), wanted);
    whenAsked({u"list"_s});
    EXPECT_EQ(output.count('\n'), count + 1);
    EXPECT_EQ(output.count("LAST ERROR"), 1);
}

TEST_F(LookingTest, AnUnknownStateIsAnError)
{
    whenAsked({u"list"_s, u"--state-of"_s, u"lost"_s});
    thenFails(2, u"korvel-till: there is no state \"lost\"; use pending"_s);
}

TEST_F(LookingTest, StatusTellsFiguresAndTheirLevel)
{
    givenOneOfEach();
    const auto figures = whenAskedForJson({u"status"_s});
    EXPECT_EQ(status, 2);
    EXPECT_EQ(figures["counts"],
        nlohmann::json::parse(
            R"({"pending": 1, "sending": 0, "delivered": 1, "refused": 1, "parked": 1})"));
    EXPECT_EQ(figures["level"], "alarm");
}

TEST_F(LookingTest, StatusOfAnEmptyQueueIsGood)
{
    whenAsked({u"status"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(outputText().contains(u"good         nothing needs attention"_s));
}

TEST_F(LookingTest, TheAgeOfTheOldestCountsByTheUsualLimits)
{
    givenMessageOfAge(59);
    whenAsked({u"status"_s});
    EXPECT_EQ(status, 0);
    givenFile(u"till.ini"_s, "[Queue]\nwarnMinutes=58\n");
    whenAsked({u"status"_s});
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(outputText().contains(u"(59 min ago)"_s));
    givenFile(u"till.ini"_s, "[Queue]\nalarmMinutes=58\n");
    whenAsked({u"status"_s});
    EXPECT_EQ(status, 2);
}

TEST_F(LookingTest, ShowHidesCredentialsAndCardNumbers)
{
    givenMessage(u"aa-1"_s);
    for (const QStringList &words :
        {QStringList{u"show"_s, u"aa"_s}, QStringList{u"show"_s, u"aa"_s, u"--json"_s}}) {
        whenAsked(words);
        EXPECT_EQ(status, 0);
        EXPECT_FALSE(outputText().contains(card));
        EXPECT_FALSE(outputText().contains(u"c2VjcmV0"_s));
        EXPECT_TRUE(outputText().contains(u"<CardNumber>*********0017</CardNumber>"_s));
    }
}

TEST_F(LookingTest, ShowTellsEverythingWhenAskedPlainly)
{
    givenMessage(u"aa-1"_s);
    const auto object = whenAskedForJson({u"show"_s, u"aa-1"_s, u"--plain"_s});
    EXPECT_EQ(object["headers"]["Authorization"], credentials.toStdString());
    EXPECT_NE(object["body"].get<std::string>().find(card.toStdString()), std::string::npos);
    whenAsked({u"show"_s, u"aa-1"_s, u"--plain"_s});
    EXPECT_TRUE(outputText().contains(u"header Authorization: "_s + credentials));
}

TEST_F(LookingTest, WhatTheFileCannotTakeIsSeen)
{
    givenMessage(u"aa-1"_s);
    givenSpilled(makeMessage(u"bb-2"_s));
    EXPECT_THAT(idsOf({u"list"_s}), testing::ElementsAre("aa-1", "bb-2"));
    const auto object = whenAskedForJson({u"status"_s});
    EXPECT_EQ(object["counts"]["pending"], 2);
    EXPECT_EQ(object["spilled"], 1);
    whenAsked({u"status"_s});
    EXPECT_TRUE(output.contains("spilled      1 of the pending ones: ")) << output.toStdString();
    whenAsked({u"metrics"_s});
    EXPECT_TRUE(output.contains("korvel_queue_messages{state=\"pending\"} 2\n"));
    EXPECT_TRUE(output.contains("korvel_queue_spilled_messages 1\n"));
    EXPECT_EQ(whenAskedForJson({u"show"_s, u"bb"_s})["state"], "pending");
}

TEST_F(LookingTest, WhatTheOpeningFoundIsTold)
{
    givenFile(u"state/queue/queue.sqlite"_s, "no database");
    whenAsked({u"status"_s});
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(errors.contains("queue.sqlite.damaged-")) << errors.toStdString();
}

TEST_F(LookingTest, OnlyWhatIsToBeSentHasANextAttempt)
{
    givenOneOfEach();
    givenMessage(u"dd-5"_s, MessageState::Sending);
    std::vector<std::string> ids;
    for (const auto &message : whenAskedForJson({u"list"_s, u"--all"_s}))
        if (!message["nextAttempt"].is_null())
            ids.push_back(message["id"]);
    EXPECT_THAT(ids, testing::ElementsAre("aa-1", "dd-5"));
}

TEST_F(LookingTest, AnIdMustMeanOneMessage)
{
    givenOneOfEach();
    whenAsked({u"show"_s, u"dd"_s});
    thenFails(2, u"korvel-till: no message has an id that begins with \"dd\"; "_s);
    whenAsked({u"show"_s, u"cc"_s});
    thenFails(2, u"korvel-till: several messages have an id that begins with \"cc\"; "_s);
    whenAsked({u"show"_s, u""_s});
    thenFails(2, u"korvel-till: no message"_s);
}

TEST_F(LookingTest, ItWorksWhileATillHasTheFolder)
{
    givenMessage(u"aa-1"_s);
    const auto till = givenRunningTill();
    whenTold(*till, "add 1002");
    EXPECT_THAT(idsOf({u"list"_s}), testing::ElementsAre("aa-1"));
    EXPECT_EQ(whenTold(*till, "close")["document"]["state"], "closed");
    EXPECT_EQ(whenInputEnds(*till), 0);
}

TEST_F(LookingTest, AMissingStateFolderIsNamedAndNotMade)
{
    whenStarted({u"queue"_s, u"status"_s, u"--state"_s, path(u"wrong"_s)});
    thenFails(3, u"korvel-till: "_s + path(u"wrong"_s) + u": there is no such state folder; ");
    EXPECT_FALSE(QFileInfo::exists(path(u"wrong"_s)));
}

TEST_F(LookingTest, TheFolderOfAnotherUserIsLeftAlone)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "only the administrator can give a folder away";
    constexpr uid_t nobody = 65534;
    ASSERT_EQ(::chown(stateFolder().toLocal8Bit().constData(), nobody, nobody), 0);
    whenAsked({u"status"_s});
    thenFails(3, u"korvel-till: "_s + stateFolder() + u": the state folder belongs to the user ");
    EXPECT_FALSE(QFileInfo::exists(databaseFile()));
}

TEST_F(LookingTest, ABrokenConfigurationIsNamedWithItsLine)
{
    whenAsked({u"status"_s, u"--config"_s, givenFile(u"broken.ini"_s, "[Till]\nnonsense\n")});
    thenFails(3, u"korvel-till: "_s + path(u"broken.ini"_s) + u":2:");
}

TEST_F(LookingTest, TheLogDoesNotMixWithTheTills)
{
    whenAsked({u"status"_s});
    EXPECT_TRUE(QFileInfo::exists(stateFolder() + u"/log/queue/korvel.log"_s));
    EXPECT_FALSE(QFileInfo::exists(stateFolder() + u"/log/korvel.log"_s));
}

TEST_F(LookingTest, WarningsOfTheSettingsAreInTheLog)
{
    const QString config = givenFile(u"twice.ini"_s, "[Queue]\nkeepDays=1\nkeepDays=2\n");
    whenAsked({u"status"_s, u"--config"_s, config});
    QFile log(stateFolder() + u"/log/queue/korvel.log"_s);
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_TRUE(log.readAll().contains("twice.ini:3: ключ Queue:keepDays: уже задан в строке 2"));
}

TEST_F(LookingTest, WrongUsageIsAnError)
{
    for (const QStringList &words :
        {QStringList{}, QStringList{u"lose"_s}, QStringList{u"list"_s, u"--bogus"_s},
            QStringList{u"show"_s}, QStringList{u"retry"_s}, QStringList{u"set-aside"_s}}) {
        SCOPED_TRACE(qPrintable(words.join(u' ')));
        whenStarted(QStringList{u"queue"_s} + words);
        thenFails(2, u"korvel-till: "_s);
    }
}

TEST_F(LookingTest, HelpNamesCommandsAndOptions)
{
    whenStarted({u"queue"_s, u"--help"_s});
    EXPECT_EQ(status, 0);
    for (const char *command : {"list", "status", "show", "retry", "set-aside"})
        EXPECT_TRUE(output.contains(command)) << command;
    whenStarted({u"queue"_s, u"list"_s, u"--help"_s});
    for (const char *option : {"--config", "--state", "--json", "--all", "--state-of"})
        EXPECT_TRUE(output.contains(option)) << option;
    for (const QString &command : {u"retry"_s, u"set-aside"_s}) {
        whenStarted({u"queue"_s, command, u"--help"_s});
        for (const char *option : {"ID...", "--all", "--state-of NAME..."})
            EXPECT_TRUE(output.contains(option)) << option;
    }
}

} // namespace
