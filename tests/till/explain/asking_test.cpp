// Asking: which document is meant, what is said when there is none, and that nothing is changed.

#include "tests/till/explain/explainfixture.h"
#include "till/support/archive.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 plenty = 64 * 1024 * 1024;

class AskingTest : public ExplainFixture
{
public:
    void appendToJournal(const QByteArray &text) const
    {
        QFile file(stateFolder() + u"/journal.jsonl"_s);
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(text);
    }
    [[nodiscard]] QString errorText() const { return QString::fromUtf8(errors); }
};

const QByteArray sale = "card 2900000000017\nadd 1004\ntotal\nclose\n";

TEST_F(AskingTest, ACardHasItsDocumentsInOrder)
{
    whenSold(
        sale + "card 2900000000017\nadd 1001\ntotal\ncancel\nreturn 1\nclose\nadd 1001\nclose\n");
    const auto object = whenAskedForJson({card, u"--no-service"_s});
    EXPECT_EQ(object.at("as"), "card");
    ASSERT_EQ(object.at("stories").size(), 3U) << object.dump(1);
    EXPECT_EQ(object.at("stories").at(0).at("number"), "1");
    EXPECT_EQ(object.at("stories").at(1).at("conclusion").at("points"), "withdrawn");
    EXPECT_EQ(object.at("stories").at(2).at("refersTo"), "1");
    EXPECT_FALSE(object.at("olderLeftOut").get<bool>());
    EXPECT_TRUE(whenAsked({card, u"--no-service"_s}).startsWith(u"Card 2900000000017: cheques"_s));
}

TEST_F(AskingTest, OfManyDocumentsOfACardTheLastAreTold)
{
    QByteArray script;
    for (int number = 0; number < 6; ++number)
        script += sale;
    whenSold(script);
    const auto object = whenAskedForJson({card, u"--no-service"_s});
    ASSERT_EQ(object.at("stories").size(), 5U);
    EXPECT_EQ(object.at("stories").at(0).at("number"), "2");
    EXPECT_EQ(object.at("stories").at(4).at("number"), "6");
    EXPECT_TRUE(object.at("olderLeftOut").get<bool>());
    EXPECT_TRUE(whenAsked({card, u"--no-service"_s}).contains(u"there are more of them"_s));
}

TEST_F(AskingTest, ACardThatWasRefusedIsFound)
{
    whenSold("card 2900000000031\nadd 1001\nclose\n");
    const QString story = whenAsked({u"2900000000031"_s, u"--no-service"_s});
    EXPECT_TRUE(story.contains(u"without a card"_s)) << qPrintable(story);
    EXPECT_TRUE(story.contains(u"there were none: nobody could get any"_s)) << qPrintable(story);
}

TEST_F(AskingTest, TheServiceSaysWhatIsOnTheCardNow)
{
    whenSold(sale);
    const auto steps = whenAskedForJson({u"1"_s}).at("stories").at(0).at("steps");
    EXPECT_EQ(steps.back().at("source"), "service");
    EXPECT_NEAR(steps.back().at("amounts").at("balance").get<double>(), 519.95, 0.005);
    EXPECT_TRUE(whenAsked({u"1"_s}, "ru").contains(u"на карте 519,95"_s)) << output.data();
}

TEST_F(AskingTest, AServiceThatIsAwayIsSaidToBe)
{
    whenSold(sale);
    whenServiceEnds();
    const auto steps = whenAskedForJson({u"1"_s}).at("stories").at(0).at("steps");
    EXPECT_EQ(steps.back().at("what"), "balanceUnanswered");
    EXPECT_EQ(status, 0);
}

TEST_F(AskingTest, AnAnswerOfSomebodyElseIsSaidToBe)
{
    whenSold("card 2900000000017\nadd 1001\ntotal\nclose\nfault balance wrong-xml 1\n");
    const auto steps = whenAskedForJson({u"1"_s}).at("stories").at(0).at("steps");
    EXPECT_EQ(steps.back().at("what"), "balanceUnanswered");
    EXPECT_TRUE(QString::fromStdString(steps.back().at("detail").get<std::string>())
                    .contains(u"ответил кто-то другой"_s))
        << steps.dump(1);
}

TEST_F(AskingTest, WithoutTheServiceItIsNotAsked)
{
    whenSold(sale);
    const auto steps
        = whenAskedForJson({u"1"_s, u"--no-service"_s}).at("stories").at(0).at("steps");
    EXPECT_NE(steps.back().at("source"), "service");
}

TEST_F(AskingTest, WhatIsNotThereIsSaidWithWhatWasSearched)
{
    whenSold(sale);
    EXPECT_TRUE(whenAsked({u"99"_s}).isEmpty());
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(errorText().contains(
        u"there is neither a cheque nor a card 99; looked through "_s + stateFolder() + u"/closed"))
        << errors.data();
    whenAsked({u"99"_s, u"--cheque"_s});
    EXPECT_TRUE(errorText().contains(u"the cheque 99 was not found"_s)) << errors.data();
    whenAsked({u"99"_s, u"--card"_s});
    EXPECT_TRUE(errorText().contains(u"the card 99 was not found"_s)) << errors.data();
    const auto object = whenAskedForJson({u"99"_s});
    EXPECT_EQ(status, 1);
    EXPECT_TRUE(object.at("stories").empty());
    EXPECT_EQ(object.at("searched").size(), 3U);
}

TEST_F(AskingTest, ANumberThatIsBothMustBeMadeClear)
{
    whenSold("card 1\nadd 1001\nclose\n");
    whenAsked({u"1"_s});
    EXPECT_EQ(status, 2);
    EXPECT_TRUE(errorText().contains(u"add --cheque or --card"_s)) << errors.data();
    whenAsked({u"1"_s, u"--cheque"_s, u"--no-service"_s});
    EXPECT_EQ(status, 0);
    whenAsked({u"1"_s, u"--card"_s, u"--no-service"_s});
    EXPECT_EQ(status, 0);
}

TEST_F(AskingTest, DocumentsOfOneNumberAreAllTold)
{
    whenSold("card 2900000000017\nadd 1001\ncancel\n");
    ASSERT_TRUE(QFile::remove(stateFolder() + u"/numbers.json"_s));
    whenSold(sale);
    const auto stories = whenAskedForJson({u"1"_s, u"--no-service"_s}).at("stories");
    ASSERT_EQ(stories.size(), 2U);
    EXPECT_EQ(stories.at(0).at("conclusion").at("points"), "withdrawn");
    EXPECT_EQ(stories.at(1).at("conclusion").at("points"), "booked");
    EXPECT_TRUE(
        whenAsked({u"1"_s, u"--no-service"_s}).contains(u"Several documents had the number 1"_s));
    const auto id
        = QString::fromStdString(stories.at(1).at("correlationId").get<std::string>()).left(10);
    const auto one = whenAskedForJson({u"1"_s, u"--no-service"_s, u"--id"_s, id}).at("stories");
    ASSERT_EQ(one.size(), 1U);
    EXPECT_EQ(one.at(0), stories.at(1));
}

TEST_F(AskingTest, AJournalThatIsJustWrittenIsReadAsFarAsItGoes)
{
    whenSold(sale);
    appendToJournal("{\"time\":\"2026-");
    EXPECT_TRUE(whenAsked({u"1"_s, u"--no-service"_s}).contains(u"Points: booked"_s));
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(errorText().contains(u"The last line of the journal is not complete"_s));
}

TEST_F(AskingTest, DamagedLinesOfTheJournalAreCounted)
{
    whenSold(sale);
    appendToJournal(QByteArray("torn\n{\"zero\":\"\0\"}\n", 19));
    whenAsked({u"1"_s, u"--no-service"_s});
    EXPECT_TRUE(errorText().contains(u"Damaged lines of the journal passed over: 2"_s))
        << errors.data();
}

TEST_F(AskingTest, WithoutItsDocumentTheJournalTells)
{
    whenSold(sale);
    ASSERT_TRUE(QFile::remove(stateFolder() + u"/closed/1.json"_s));
    const auto story = whenAskedForJson({u"1"_s, u"--no-service"_s}).at("stories").at(0);
    EXPECT_EQ(story.at("conclusion").at("points"), "booked");
    EXPECT_EQ(story.at("card"), card.toStdString());
}

TEST_F(AskingTest, WithoutItsJournalTheDocumentTells)
{
    whenSold(sale);
    ASSERT_TRUE(QFile::remove(stateFolder() + u"/journal.jsonl"_s));
    const auto story = whenAskedForJson({u"1"_s, u"--no-service"_s}).at("stories").at(0);
    EXPECT_EQ(story.at("conclusion").at("points"), "booked");
    EXPECT_EQ(story.at("steps").at(1).at("what"), "registerAgreed");
}

TEST_F(AskingTest, AQueueThatCannotBeReadLeavesTheEndOpen)
{
    givenSettings("[Queue]\ndeliverAfterClose=false\n");
    whenSold("fault refuse 1\ncard 2900000000017\nadd 1004\nclose\n");
    const QString queue = stateFolder() + u"/queue/queue.sqlite"_s;
    QFile::remove(queue + u"-wal"_s);
    QFile file(queue);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("this is no database at all");
    file.close();
    const auto conclusion
        = whenAskedForJson({u"1"_s, u"--no-service"_s}).at("stories").at(0).at("conclusion");
    EXPECT_EQ(conclusion.at("points"), "unknown");
}

TEST_F(AskingTest, NothingIsChanged)
{
    whenSold(sale + "fault refuse 1\ncard 2900000000017\nadd 1004\nclose\n");
    const auto before = filesOfState();
    whenAsked({u"1"_s});
    whenAsked({card});
    whenBundled();
    auto after = filesOfState();
    // The database's own notes about who reads it; whoever works it takes them away.
    after.remove(stateFolder() + u"/queue/queue.sqlite-shm"_s);
    after.remove(stateFolder() + u"/queue/queue.sqlite-wal"_s);
    EXPECT_EQ(before.keys(), after.keys());
    EXPECT_EQ(before, after);
}

TEST_F(AskingTest, ARunningTillGoesOnBesideIt)
{
    const auto till = givenRunningTill();
    whenTold(*till, "add 1001");
    EXPECT_TRUE(whenAsked({u"1"_s, u"--no-service"_s}).contains(u"the document is open"_s))
        << errors.data();
    whenBundled();
    EXPECT_EQ(status, 0) << errors.data();
    EXPECT_EQ(whenTold(*till, "close").at("document").at("state"), "closed");
    EXPECT_TRUE(whenAsked({u"1"_s, u"--no-service"_s}).contains(u"No customer's card"_s));
    EXPECT_EQ(whenInputEnds(*till), 0);
}

TEST_F(AskingTest, AnArchiveIsReadInTheTimeOfItsTill)
{
    qputenv("TZ", "Asia/Tokyo");
    whenSold(sale);
    const auto fromFolder = whenAskedForJson({u"1"_s, u"--no-service"_s});
    const QString archive = whenBundled();
    qputenv("TZ", "America/Lima");
    const auto fromArchive = whenAskedForJson({u"1"_s, u"--bundle"_s, archive});
    qunsetenv("TZ");
    EXPECT_EQ(fromFolder.at("stories"), fromArchive.at("stories"));
}

TEST_F(AskingTest, ACodeThatACustomerToldIsNotInTheArchive)
{
    givenSettings("[KorvelLoyaltyOnline]\nuseConfirmation=true\nnoConfirmationBonusLimit=10\n"
                  "user=till\npassword=planted-password\n[Queue]\ndeliverAfterClose=false\n");
    // One cheque is in the queue with its code, the next one open with it.
    whenSold("card 2900000000017\nadd 1004\ntotal\nanswer text 4829\npoints 60\n"
             "fault fiscal reset\nclose\n"
             "card 2900000000017\nadd 1004\ntotal\nanswer text 4829\npoints 60\n");
    ASSERT_TRUE(filesOfState().value(stateFolder() + u"/document.json"_s).contains("4829"));
    const auto entries = till::support::archive::unpacked(whenBundled(), plenty);
    for (const auto &entry : entries) {
        EXPECT_FALSE(
            QString::fromUtf8(entry.contents).contains(QRegularExpression(u"\\b4829\\b"_s)))
            << qPrintable(entry.name) << '\n'
            << entry.contents.data();
        EXPECT_FALSE(entry.contents.contains("planted-password")) << qPrintable(entry.name);
        EXPECT_FALSE(entry.contents.contains(QByteArray("till:planted-password").toBase64()))
            << qPrintable(entry.name);
    }
}

TEST_F(AskingTest, WrongUsageIsAnError)
{
    for (const QStringList &words : {QStringList{}, QStringList{u"1"_s, u"2"_s},
             QStringList{u"1"_s, u"--card"_s, u"--cheque"_s},
             QStringList{u"1"_s, u"--bundle"_s, u"x"_s, u"--state"_s, u"y"_s}}) {
        SCOPED_TRACE(qPrintable(words.join(u' ')));
        whenStarted(QStringList{u"explain"_s} + words);
        thenFails(2, u"korvel-till: "_s);
    }
}

TEST_F(AskingTest, AStateFolderThatIsNotThereCannotBeUsed)
{
    whenStarted({u"explain"_s, u"1"_s, u"--state"_s, path(u"nowhere"_s)});
    thenFails(3, u"korvel-till: "_s + path(u"nowhere"_s));
    EXPECT_FALSE(QDir(path(u"nowhere"_s)).exists());
}

TEST_F(AskingTest, AnArchiveThatIsNoneCannotBeUsed)
{
    whenStarted({u"explain"_s, u"1"_s, u"--bundle"_s, givenFile(u"text.tar.gz"_s, "text")});
    thenFails(3, u"korvel-till: "_s + path(u"text.tar.gz"_s));
    whenStarted({u"explain"_s, u"1"_s, u"--bundle"_s, path(u"missing.tar.gz"_s)});
    thenFails(3, u"korvel-till: "_s + path(u"missing.tar.gz"_s));
}

} // namespace
