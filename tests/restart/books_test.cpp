// What a state folder is found to hold.

#include "tests/restart/books.h"
#include "tests/support/printers.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

class BooksTest : public testing::Test
{
public:
    void givenFile(const QString &name, const QByteArray &contents) const
    {
        const QString path = m_folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }

    // A queue with one message of each of these states.
    void givenQueue(const QStringList &states) const
    {
        QDir(m_folder.path()).mkdir(u"queue"_s);
        {
            auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"queue"_s);
            database.setDatabaseName(m_folder.filePath(u"queue/queue.sqlite"_s));
            ASSERT_TRUE(database.open());
            QSqlQuery query(database);
            query.exec(u"CREATE TABLE messages (number INTEGER PRIMARY KEY, state, last_error)"_s);
            for (const QString &state : states)
                query.exec(
                    u"INSERT INTO messages (state, last_error) VALUES ('%1', 'late')"_s.arg(state));
        }
        QSqlDatabase::removeDatabase(u"queue"_s);
    }

    [[nodiscard]] Books whenRead() const
    {
        Books books;
        readStateFolder(m_folder.path(), books);
        return books;
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(BooksTest, AnEmptyFolderHoldsNothing)
{
    const Books books = whenRead();
    EXPECT_TRUE(books.closed.empty());
    EXPECT_FALSE(books.hasOpenDocument);
    EXPECT_TRUE(books.undelivered.isEmpty());
}

TEST_F(BooksTest, ClosedDocumentsAreThoseOfTheirFolder)
{
    givenFile(u"closed/1.json"_s, R"({"number": "1"})");
    givenFile(u"numbers.json"_s, R"({"highestNumber": 1})");
    const Books books = whenRead();
    ASSERT_EQ(books.closed.size(), 1U);
    EXPECT_EQ(books.closed[0].at("number"), "1");
}

TEST_F(BooksTest, AnOpenDocumentIsSeen)
{
    givenFile(u"document.json"_s, "{}");
    EXPECT_TRUE(whenRead().hasOpenDocument);
}

TEST_F(BooksTest, TornFilesAreSeen)
{
    givenFile(u"closed/1.json"_s, R"({"number": )");
    givenFile(u"numbers.json"_s, "");
    givenFile(u"journal.jsonl"_s, "{}\n{}\n");
    EXPECT_EQ(whenRead().tornFiles.size(), 2);
}

TEST_F(BooksTest, AJournalIsTornInALineAndAtItsEnd)
{
    for (const char *torn : {"{}\n{\n{}\n", "{}\n{}"}) {
        givenFile(u"journal.jsonl"_s, torn);
        EXPECT_EQ(whenRead().tornFiles.size(), 1) << torn;
    }
}

TEST_F(BooksTest, TemporaryFilesAreSeen)
{
    givenFile(u"closed/1.json.new"_s, "{}");
    EXPECT_EQ(whenRead().temporaryFiles.size(), 1);
}

TEST_F(BooksTest, WhatIsNotDeliveredIsTold)
{
    givenQueue({u"delivered"_s, u"pending"_s, u"sending"_s, u"refused"_s, u"parked"_s});
    EXPECT_EQ(whenRead().undelivered,
        QStringList({u"2 (pending) late"_s, u"3 (sending) late"_s, u"4 (refused) late"_s,
            u"5 (parked) late"_s}));
}

} // namespace

} // namespace restart
