// The line that tells the state.

#include "tests/support/printers.h"
#include "till/window/servicestate.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QDateTime noon(QDate(2026, 3, 1), QTime(12, 0));

TEST(ConnectionTest, NothingIsKnownBeforeTheFirstExchange)
{
    till::Connection connection;
    connection.observe(0, false, noon);
    EXPECT_FALSE(connection.isOffline());
    EXPECT_EQ(connection.text(), u"Система лояльности: запросов ещё не было");
}

TEST(ConnectionTest, OfflineCountsFromTheFirstFailure)
{
    till::Connection connection;
    connection.observe(1, false, noon);
    connection.observe(2, false, noon.addSecs(600));
    EXPECT_TRUE(connection.isOffline());
    EXPECT_EQ(connection.text(), u"Система лояльности: нет связи с 1 Mar 2026 12:00:00");
}

TEST(ConnectionTest, ASuccessEndsIt)
{
    till::Connection connection;
    connection.observe(1, false, noon);
    connection.observe(2, true, noon.addSecs(60));
    EXPECT_FALSE(connection.isOffline());
    EXPECT_EQ(connection.text(), u"Система лояльности: на связи");
    connection.observe(3, false, noon.addSecs(120));
    EXPECT_EQ(connection.text(), u"Система лояльности: нет связи с 1 Mar 2026 12:02:00");
}

TEST(ConnectionTest, ALookWithoutAnExchangeChangesNothing)
{
    till::Connection connection;
    connection.observe(1, true, noon);
    connection.observe(1, false, noon);
    EXPECT_FALSE(connection.isOffline());
}

TEST(QueueTextTest, TellsWhatWaitsAndForHowLong)
{
    QueueOffice::Status status;
    EXPECT_EQ(till::queueText(status, noon), u"Очередь отправки пуста");
    status.counts[MessageState::Pending] = 2;
    status.oldestWaiting = noon.addSecs(-720);
    EXPECT_EQ(till::queueText(status, noon), u"Ждут отправки 2 сообщений, самое старое — 12 мин");
    status.counts[MessageState::Sending] = 1;
    EXPECT_EQ(till::queueText(status, noon),
        u"Ждут отправки 3 сообщений, самое старое — 12 мин · идёт отправка");
}

TEST(QueueTextTest, AServerThatIsNotReachedIsTold)
{
    QueueOffice::Status status;
    status.unreached = tr::Tr(tr::undefined, u"no route"_s);
    EXPECT_EQ(till::queueText(status, noon), u"Очередь отправки пуста · сервер очереди недоступен");
}

TEST(QueueTextTest, WhatAPersonMustLookAtIsTold)
{
    QueueOffice::Status status;
    status.counts[MessageState::Refused] = 1;
    status.counts[MessageState::Parked] = 2;
    status.moved = 1;
    EXPECT_EQ(till::queueText(status, noon), u"Очередь отправки пуста · требуют внимания: 2");
}

TEST(AgeTextTest, TheTwoLargestUnits)
{
    EXPECT_EQ(till::ageText(0s), u"0 с");
    EXPECT_EQ(till::ageText(59s), u"59 с");
    EXPECT_EQ(till::ageText(60s), u"1 мин");
    EXPECT_EQ(till::ageText(59min + 59s), u"59 мин");
    EXPECT_EQ(till::ageText(3h + 5min), u"3 ч 5 мин");
    EXPECT_EQ(till::ageText(24h - 1s), u"23 ч 59 мин");
    EXPECT_EQ(till::ageText(49h), u"2 д 1 ч");
}

} // namespace
