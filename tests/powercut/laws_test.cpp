// Each law finds the one thing that is wrong in a state folder, and nothing where nothing is.

#include "tests/powercut/laws.h"
#include "tests/powercut/recording.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr quint32 seed = 20'241'121;

/// What a subject has left in the end, and what it said.
class LawsTest : public testing::Test
{
protected:
    void given(const QString &work)
    {
        const Recording recording = recordSubject(work, seed);
        build(recording.left, m_folder.path());
        m_story = storyAt(recording.records, recording.records.size());
    }
    void givenSaid(const QStringList &words) { m_story.said.push_back(words); }
    void givenContents(
        const QString &name, const std::function<QByteArray(const QByteArray &)> &changed)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray contents = changed(file.readAll());
        file.close();
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    void givenStatement(const QString &statement)
    {
        {
            auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"law"_s);
            database.setDatabaseName(path(u"queue/queue.sqlite"_s));
            ASSERT_TRUE(database.open());
            ASSERT_TRUE(QSqlQuery(database).exec(statement));
        }
        QSqlDatabase::removeDatabase(u"law"_s);
    }
    void thenFound(
        QStringList (*law)(const QString &, quint32, const Story &), const std::string &sentence)
    {
        const QStringList found = law(m_folder.path(), seed, m_story);
        EXPECT_THAT(found.join(u'\n').toStdString(), testing::HasSubstr(sentence));
    }
    void thenNothingFound(QStringList (*law)(const QString &, quint32, const Story &))
    {
        EXPECT_EQ(law(m_folder.path(), seed, m_story).join(u'\n').toStdString(), "");
    }
    [[nodiscard]] QString path(const QString &name) const
    {
        return m_folder.filePath(u"shop/till/"_s + name);
    }

    Story m_story;

private:
    QTemporaryDir m_folder;
};

class DocumentLawsTest : public LawsTest
{
protected:
    DocumentLawsTest() { given(u"documents"_s); }

    /// The number of a closed document.
    [[nodiscard]] QString closedNumber() const
    {
        for (const QStringList &words : m_story.said)
            if (words.first() == u"closed")
                return words.at(1);
        return {};
    }
};

TEST_F(DocumentLawsTest, NothingIsFoundWhereNothingIsWrong)
{
    thenNothingFound(laws::documentsAreKept);
}

TEST_F(DocumentLawsTest, ClosedDocumentIsMissing)
{
    ASSERT_TRUE(QFile::remove(path(u"closed/%1.json"_s.arg(closedNumber()))));
    thenFound(laws::documentsAreKept, "kept were");
}

TEST_F(DocumentLawsTest, DocumentIsNotAsItWasMade)
{
    givenContents(u"closed/%1.json"_s.arg(closedNumber()),
        [](QByteArray contents) { return contents.replace("id of ", "id for "); });
    thenFound(laws::documentsAreKept, closedNumber().toStdString() + "/damaged");
}

TEST_F(DocumentLawsTest, OpenDocumentIsOlderThanWhatWasSaved)
{
    givenSaid({u"saved"_s, u"1000"_s, u"1"_s});
    thenFound(laws::documentsAreKept, "kept were: open 1000/1");
}

TEST_F(DocumentLawsTest, NumberWouldBeGivenAgain)
{
    givenSaid({u"given"_s, u"1000"_s});
    thenFound(laws::documentsAreKept, "1000 was the highest number");
}

TEST_F(DocumentLawsTest, DocumentCannotBeRead)
{
    givenContents(u"closed/%1.json"_s.arg(closedNumber()),
        [](const QByteArray &contents) { return contents.first(contents.size() / 2); });
    thenFound(laws::documentsAreKept, "the till does not start");
}

class JournalLawsTest : public LawsTest
{
protected:
    JournalLawsTest() { given(u"journal"_s); }

    void givenLines(const std::function<void(QByteArrayList &)> &change)
    {
        givenContents(u"journal.jsonl"_s, [&change](const QByteArray &contents) {
            QByteArrayList lines = contents.split('\n');
            change(lines);
            return lines.join('\n');
        });
    }
};

TEST_F(JournalLawsTest, NothingIsFoundWhereNothingIsWrong)
{
    thenNothingFound(laws::journalIsKept);
}

TEST_F(JournalLawsTest, LineThatWasOnDiskIsMissing)
{
    givenLines([](QByteArrayList &lines) { lines.removeAt(1); });
    thenFound(laws::journalIsKept, "line 2 of the journal was on disk and is lost");
}

TEST_F(JournalLawsTest, LineThatWasOnDiskIsTorn)
{
    givenLines([](QByteArrayList &lines) { lines[1].chop(1); });
    thenFound(laws::journalIsKept, "line 2 of the journal was on disk and is lost");
}

TEST_F(JournalLawsTest, LinesAreInAnotherOrder)
{
    givenLines([](QByteArrayList &lines) { lines.swapItemsAt(1, 2); });
    thenFound(laws::journalIsKept, "line 2 of the journal stands behind line 3");
}

TEST_F(JournalLawsTest, LineStandsThereTwice)
{
    givenLines([](QByteArrayList &lines) { lines.insert(1, lines[1]); });
    thenFound(laws::journalIsKept, "line 2 of the journal stands behind line 2");
}

TEST_F(JournalLawsTest, LineTellsSomethingElse)
{
    givenLines([](QByteArrayList &lines) { lines[1].replace("\"text\":\"", "\"text\":\"!"); });
    thenFound(laws::journalIsKept, "line 2 of the journal was never written so");
}

TEST_F(JournalLawsTest, LineWasNeverBegun)
{
    m_story.said.pop_back();
    m_story.said.pop_back();
    thenFound(laws::journalIsKept, "of the journal was never written so");
}

TEST_F(JournalLawsTest, TornLineThatWasNotOnDiskIsNoFault)
{
    const auto isSettled = [](const QStringList &words) { return words.first() == u"settled"; };
    std::erase_if(m_story.said, isSettled);
    givenLines([](QByteArrayList &lines) { lines[1][40] = '\0'; });
    thenNothingFound(laws::journalIsKept);
}

TEST(JournalWentOnTest, NextLineIsWholeAndNothingElseHasChanged)
{
    const QByteArray torn = "{\"kind\":\"ev";
    const QByteArray next = "{\"kind\":\"restart\"}\n";
    EXPECT_TRUE(laws::journalWentOn(torn, torn + '\n' + next).isEmpty());
    EXPECT_EQ(
        laws::journalWentOn(torn, next), QStringList{u"the journal was changed by an append"_s});
    EXPECT_TRUE(laws::journalWentOn(torn, torn + next)
                    .join(u' ')
                    .startsWith(u"the journal goes on with the line \"{"));
}

class MessageLawsTest : public LawsTest
{
protected:
    MessageLawsTest() { given(u"queue"_s); }

    /// A program that cannot be looked for has a message in hand, and the others wait behind it.
    void givenInOtherHands()
    {
        givenStatement(u"UPDATE messages SET state = 'sending', lease_owner = 'another program', "
                       u"lease_until = strftime('%Y-%m-%dT%H:%M:%fZ', 'now', '1 minute') "
                       u"WHERE remark = '5'"_s);
    }
};

TEST_F(MessageLawsTest, NothingIsFoundWhereNothingIsWrong)
{
    thenNothingFound(laws::messagesAreKept);
}

TEST_F(MessageLawsTest, MessageIsMissing)
{
    givenStatement(u"DELETE FROM messages WHERE remark = '5'"_s);
    thenFound(laws::messagesAreKept, "message 5 was enqueued and is missing");
}

TEST_F(MessageLawsTest, MessageWasNeverEnqueued)
{
    givenStatement(u"UPDATE messages SET remark = '1000' WHERE remark = '60'"_s);
    thenFound(laws::messagesAreKept, "message 1000 was never enqueued");
}

TEST_F(MessageLawsTest, MessagesAreInAnotherOrder)
{
    givenStatement(u"UPDATE messages SET number = 1000 WHERE remark = '5'"_s);
    thenFound(laws::messagesAreKept, "message 5 stands behind message 60");
}

TEST_F(MessageLawsTest, BodyIsDamaged)
{
    givenStatement(u"UPDATE messages SET body = body || 'x' WHERE remark = '5'"_s);
    thenFound(laws::messagesAreKept, "message 5 is damaged");
}

TEST_F(MessageLawsTest, AttemptIsNotCounted)
{
    givenStatement(u"UPDATE messages SET attempts = 0 WHERE remark = '5'"_s);
    thenFound(laws::messagesAreKept, "message 5 was sent");
}

TEST_F(MessageLawsTest, DeliveredMessageWouldBeSentAgain)
{
    givenStatement(u"UPDATE messages SET state = 'pending' WHERE state = 'delivered'"_s);
    thenFound(laws::messagesAreKept, "was delivered, and is");
}

TEST_F(MessageLawsTest, RefusedMessageIsDelivered)
{
    givenStatement(u"UPDATE messages SET state = 'delivered' WHERE state = 'refused'"_s);
    thenFound(laws::messagesAreKept, "was refused, and is delivered now");
}

TEST_F(MessageLawsTest, MessageThatWaitsIsNotSent)
{
    givenInOtherHands();
    thenFound(laws::messagesAreKept, "messages waited, 0 were sent");
}

TEST_F(MessageLawsTest, MessageWaitsBehindTheDelivery)
{
    givenInOtherHands();
    thenFound(laws::messagesAreKept, "messages wait still");
}

TEST_F(MessageLawsTest, FileIsDamaged)
{
    givenContents(u"queue/queue.sqlite"_s, [](QByteArray contents) {
        constexpr int page = 4096;
        return contents.replace(page, page, QByteArray(page, '\xff'));
    });
    thenFound(laws::messagesAreKept, "Очередь отправки повреждена");
}

} // namespace

} // namespace powercut
