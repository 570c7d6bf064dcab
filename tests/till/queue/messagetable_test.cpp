// Messages as a table.

#include "tests/support/printers.h"
#include "till/queue/messagetable.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

using namespace Qt::StringLiterals;
using till::MessageTable;

namespace {

class MessageTableTest : public testing::Test
{
public:
    MessageTableTest() { std::setlocale(LC_CTYPE, "C.UTF-8"); }
    ~MessageTableTest() override
    {
        std::fclose(m_stream);
        std::free(m_text);
    }

    static QueueMessage makeMessage(const QString &error)
    {
        QueueMessage message;
        message.id = u"01234567-89ab-4cde-8f01-23456789abcd"_s;
        message.enqueued = QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9));
        message.nextAttempt = message.enqueued.addSecs(61);
        message.attempts = 12;
        message.lastCode = 503;
        message.lastError = error;
        return message;
    }
    QStringList lines()
    {
        std::fflush(m_stream);
        return QString::fromUtf8(m_text).split(u'\n', Qt::SkipEmptyParts);
    }

    char *m_text = nullptr;
    size_t m_size = 0;
    std::FILE *m_stream = open_memstream(&m_text, &m_size);
};

TEST_F(MessageTableTest, OnATerminalNoLineIsWiderThanIt)
{
    MessageTable table(m_stream, MessageTable::Width::Terminal);
    table.setTerminalWidth(80);
    table.write({makeMessage(QString(200, u'ж'))});
    ASSERT_EQ(lines().size(), 2);
    EXPECT_EQ(lines().at(1).size(), 80);
    EXPECT_TRUE(lines().at(1).startsWith(
        u"01234567-89ab 2024-03-05 17:04 pending      12 17:05:10   503 жжж"_s))
        << qPrintable(lines().at(1));
}

TEST_F(MessageTableTest, ElsewhereNothingIsCut)
{
    MessageTable table(m_stream, MessageTable::Width::Whole);
    table.setTerminalWidth(80);
    table.write({makeMessage(QString(200, u'ж'))});
    EXPECT_TRUE(lines().at(1).startsWith(u"01234567-89ab-4cde-8f01-23456789abcd "_s));
    EXPECT_TRUE(lines().at(1).endsWith(QString(200, u'ж')));
}

TEST_F(MessageTableTest, EveryPageHasTheColumnsOfTheFirst)
{
    MessageTable table(m_stream, MessageTable::Width::Terminal);
    table.setTerminalWidth(80);
    QueueMessage other = makeMessage(u"y"_s);
    other.id = u"1"_s;
    other.attempts = 0;
    other.lastCode = 0;
    other.state = MessageState::Delivered;
    table.write({makeMessage(u"x"_s)});
    table.write({other});
    const qsizetype column = lines().at(0).indexOf(u"LAST ERROR"_s);
    ASSERT_EQ(lines().size(), 3);
    EXPECT_EQ(lines().at(1).indexOf(u'x'), column);
    EXPECT_EQ(lines().at(2).lastIndexOf(u'y'), column);
}

TEST_F(MessageTableTest, OnlyWhatWaitsHasANextAttempt)
{
    QueueMessage refused = makeMessage(u"x"_s);
    refused.state = MessageState::Refused;
    MessageTable(m_stream, MessageTable::Width::Whole).write({refused});
    EXPECT_FALSE(lines().at(1).contains(u"17:05:10"_s));
}

TEST_F(MessageTableTest, AnErrorIsOneLineWithoutControlCharacters)
{
    MessageTable(m_stream, MessageTable::Width::Whole).write({makeMessage(u"a\nb\x1b[31m"_s)});
    ASSERT_EQ(lines().size(), 2);
    EXPECT_TRUE(lines().at(1).contains(u"a b"_s));
    EXPECT_FALSE(lines().at(1).contains(u'\x1b'));
}

TEST_F(MessageTableTest, AMovedMessageNamesItsFile)
{
    QueueMessage moved = makeMessage(u"x"_s);
    moved.movedTo = u"/media/stick/file"_s;
    MessageTable(m_stream, MessageTable::Width::Whole).write({moved});
    EXPECT_TRUE(lines().at(1).endsWith(u"moved to /media/stick/file"_s));
}

TEST_F(MessageTableTest, AFileIsNoTerminal)
{
    std::FILE *file = std::tmpfile();
    EXPECT_EQ(MessageTable::widthFor(file), MessageTable::Width::Whole);
    std::fclose(file);
}

} // namespace
