// A message as text, and as JSON.

#include "tests/support/printers.h"
#include "till/queue/messageobject.h"
#include "till/queue/messagetext.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till;

namespace {

const QDateTime evening(QDate(2024, 3, 5), QTime(17, 4, 9), Qt::UTC);

QueueMessage wholeOne()
{
    QueueMessage message;
    message.number = 5;
    message.id = u"id-5"_s;
    message.queue = u"loyalty"_s;
    message.remark = u"note"_s;
    message.url = u"http://service/"_s;
    message.headers = {{u"X-B"_s, u"2"_s}, {u"X-A"_s, u"1"_s}};
    message.body = "<a/>";
    message.correlationId = u"doc-1"_s;
    message.lane = u"1-2"_s;
    message.enqueued = evening;
    message.attempts = 2;
    message.lastAttempt = evening.addSecs(1);
    message.nextAttempt = evening.addSecs(2);
    message.leaseOwner = u"host/17"_s;
    message.deliverersLost = 1;
    message.lastCode = 503;
    message.lastError = u"busy"_s;
    message.answer = "later\n";
    message.answeredOtherwiseSince = evening.addSecs(3);
    message.settled = evening.addSecs(4);
    message.movedTo = u"/file"_s;
    return message;
}

TEST(MessageTextTest, EveryValueHasItsLine)
{
    const QString text = messageText(wholeOne());
    for (const QString &line :
        QStringList{u"id: id-5\n"_s, u"queue: loyalty\n"_s, u"state: pending\n"_s,
            u"remark: note\n"_s, u"till: 1-2\n"_s, u"document: doc-1\n"_s, u"attempts: 2\n"_s,
            u"last error: busy\n"_s, u"code: 503\n"_s, u"deliverer: host/17\n"_s,
            u"deliverers lost: 1\n"_s, u"moved to: /file\n"_s, u"url: http://service/\n"_s,
            u"header X-A: 1\nheader X-B: 2\n"_s, u"\nbody:\n<a/>\n"_s, u"\nanswer:\nlater\n"_s,
            u"enqueued: "_s + timeText(evening), u"last attempt: "_s + timeText(evening.addSecs(1)),
            u"next attempt: "_s + timeText(evening.addSecs(2)),
            u"other answers since: "_s + timeText(evening.addSecs(3)),
            u"settled: "_s + timeText(evening.addSecs(4))})
        EXPECT_TRUE(text.contains(line)) << qPrintable(line);
}

TEST(MessageTextTest, WhatIsNotThereHasNone)
{
    QueueMessage message;
    message.state = MessageState::Refused;
    message.nextAttempt = evening;
    EXPECT_EQ(messageText(message), u"state: refused\nattempts: 0\n"_s);
}

TEST(MessageTextTest, NoTextWorksTheTerminal)
{
    QueueMessage message;
    message.answer = "\x1b[2J";
    EXPECT_FALSE(messageText(message).contains(u'\x1b'));
}

TEST(MessageTextTest, NoValueLooksLikeAnotherLine)
{
    QueueMessage message;
    message.state = MessageState::Refused;
    message.lastError = u"no\nstate: delivered"_s;
    EXPECT_EQ(
        messageText(message), u"state: refused\nattempts: 0\nlast error: no state: delivered\n"_s);
}

TEST(MessageTextTest, ProgramsReadEveryValue)
{
    EXPECT_EQ(wholeMessage(wholeOne()), Json::parse(R"({"id": "id-5", "queue": "loyalty",
        "state": "pending", "attempts": 2, "enqueued": "2024-03-05T17:04:09Z",
        "nextAttempt": "2024-03-05T17:04:11Z", "lastError": "busy", "code": 503, "number": 5,
        "remark": "note", "lane": "1-2", "correlationId": "doc-1",
        "lastAttempt": "2024-03-05T17:04:10Z", "deliverer": "host/17", "deliverersLost": 1,
        "answeredOtherwiseSince": "2024-03-05T17:04:12Z", "settled": "2024-03-05T17:04:13Z",
        "movedTo": "/file", "url": "http://service/", "headers": {"X-A": "1", "X-B": "2"},
        "body": "<a/>", "answer": "later\n"})"));
}

TEST(MessageTextTest, ATimeThatNeverCameIsNull)
{
    EXPECT_TRUE(wholeMessage({})["settled"].is_null());
    EXPECT_EQ(timeText({}), u""_s);
}

} // namespace
