// The shift's sums and open ends.

#include "host/queue/dbqueuebroker.h"
#include "host/queue/messagestore.h"
#include "host/queue/spillfile.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "tests/support/printers.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/shift.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class ShiftTest : public TillFixture
{
public:
    QStringList whenShiftIsClosed()
    {
        QStringList texts;
        for (const tr::Tr &notice : till->closeShift().notices)
            texts.append(notice.ru());
        return texts;
    }
};

TEST_F(ShiftTest, SalesReturnsAndPointsAreSummedUp)
{
    givenCalculatedSale({u"1002"_s, u"1001"_s}, 10.0);
    loyalty->setAvailablePoints(50.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 20.0);
        return true;
    };
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this] {
        loyalty->giveBonusRecord(7.0);
        return true;
    };
    till->payWithPoints(20.0);
    till->close();
    till->openReturn();
    givenSaleOf({u"1001"_s});
    till->close();
    EXPECT_EQ(whenShiftIsClosed(),
        (QStringList{u"Продажи: 1, сумма 115.90"_s, u"Возвраты: 1, сумма 45.90"_s,
            u"Баллы: начислено 7.00, списано 20.00"_s, u"Ждут отправки: 0"_s}));
}

TEST_F(ShiftTest, TheNextShiftBeginsEmpty)
{
    givenClosedSale();
    whenShiftIsClosed();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 0, сумма 0.00"_s);
    givenClosedSale();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 1, сумма 45.90"_s);
}

TEST_F(ShiftTest, TheShiftOutlivesTheTill)
{
    givenClosedSale();
    whenShiftIsClosed();
    givenClosedSale();
    givenRestart();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 1, сумма 45.90"_s);
}

TEST_F(ShiftTest, CancelledDocumentsDoNotCount)
{
    givenSaleOf({u"1001"_s});
    till->cancel();
    EXPECT_EQ(whenShiftIsClosed().value(0), u"Продажи: 0, сумма 0.00"_s);
}

TEST_F(ShiftTest, AnOpenDocumentIsAnOpenEnd)
{
    givenSaleOf({u"1001"_s});
    EXPECT_EQ(whenShiftIsClosed().constLast(), u"Открыт документ 17"_s);
}

class RegistrationTest : public ShiftTest
{
public:
    /// A closed sale, which queues a message for itself where the test says so.
    void givenClosed(const QString &cardNumber, const QString &operationId, bool queues)
    {
        if (!cardNumber.isEmpty())
            till->presentCard(cardNumber, ECardNumberType::Keyed);
        till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
        if (!cardNumber.isEmpty())
            loyalty->presented->setOperationId(operationId);
        whenClosed(u"event 10"_s, queues);
    }
    void givenReturn(const QString &cardNumber, bool queues)
    {
        till->openReturn();
        if (!cardNumber.isEmpty())
            till->presentCard(cardNumber, ECardNumberType::Keyed);
        till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
        whenClosed(u"commit"_s, queues);
    }
    void whenClosed(const QString &operationThatQueues, bool queues)
    {
        loyalty->behaviour[operationThatQueues] = [queues] {
            if (queues)
                Singleton<DBQueueBroker>::instance()->enqueue(
                    u"loyalty"_s, {{u"url"_s, u"http://127.0.0.1:9/"_s}, {u"body"_s, u"b"_s}}, {});
            return true;
        };
        till->close();
        loyalty->behaviour.clear();
    }
    static void givenMessages(const QString &assignments)
    {
        MessageStore store(Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s);
        store.database().run(u"UPDATE messages SET "_s + assignments);
    }
    /// The rows of the documents that are not confirmed.
    QStringList whenRowsAreTold()
    {
        const till::Outcome outcome = till->closeShift();
        QStringList rows;
        for (const tr::Tr &notice : outcome.notices)
            if (notice.id().startsWith(u"tillShiftUnconfirmed"_s))
                rows.append(notice.ru());
        EXPECT_EQ(outcome.hasOpenEnds, !rows.isEmpty());
        return rows;
    }

    const QString card = u"2900000000017"_s;
};

TEST_F(RegistrationTest, ASaleThatWaitsIsARow)
{
    givenClosed(card, {}, true);
    const QString time = store->loadClosed(u"17"_s)->getClosed().toString(u"dd.MM.yyyy HH:mm");
    EXPECT_EQ(whenRowsAreTold(),
        QStringList{u"Не подтверждена продажа 17 от %1: сумма 45.90, баллы: начислено 0.00, "
                    u"списано 0.00, сообщение: ждёт отправки, ошибка: нет"_s.arg(time)});
}

TEST_F(RegistrationTest, ASaleThatTheQueuesFileCouldNotTakeWaits)
{
    const QString file = Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s;
    // In the way of the ballast, without which nothing is taken in.
    ASSERT_TRUE(QDir().mkpath(file + u".ballast"_s));
    QueueMessage before;
    before.id = u"aa"_s;
    SpillFile(file + u".spill"_s).append(before);
    givenClosed(card, {}, true);
    QStringList texts;
    for (const tr::Tr &notice : till->closeShift().notices)
        texts.append(notice.ru());
    EXPECT_TRUE(texts.contains(u"Ждут отправки: 2"_s)) << qPrintable(texts.join(u'\n'));
    EXPECT_TRUE(texts.last().contains(u"сообщение: ждёт отправки"_s)) << qPrintable(texts.last());
}

TEST_F(RegistrationTest, ARowTellsTheStateOfTheMessageAndItsError)
{
    const QList<QPair<QString, QString>> table{{u"state = 'refused', last_error = 'код 80241'"_s,
                                                   u"сообщение: отклонено, ошибка: код 80241"_s},
        {u"state = 'sending'"_s, u"сообщение: отправляется, ошибка: код 80241"_s},
        {u"state = 'parked', last_error = ''"_s,
            u"сообщение: отложено до решения администратора, ошибка: нет"_s},
        {u"moved_to = '/stick/file'"_s,
            u"сообщение: перенесено в файл /stick/file, ошибка: нет"_s}};
    givenClosed(card, {}, true);
    for (const auto &[assignments, ending] : table) {
        givenMessages(assignments);
        QFile::remove(stateFolder() + u"/shift"_s);
        const QStringList rows = whenRowsAreTold();
        EXPECT_TRUE(rows.value(0).endsWith(ending)) << qPrintable(rows.value(0));
    }
}

TEST_F(RegistrationTest, ASaleWithoutAMessageIsARow)
{
    givenClosed(card, {}, false);
    EXPECT_TRUE(whenRowsAreTold().value(0).contains(u"сообщение: нет в очереди, ошибка: нет"_s));
}

TEST_F(RegistrationTest, AReturnThatWaitsIsARow)
{
    givenReturn(card, true);
    EXPECT_TRUE(whenRowsAreTold().value(0).startsWith(u"Не подтверждён возврат 17 от "_s));
}

TEST_F(RegistrationTest, WhatIsConfirmedOrNeedsNoneIsNoRow)
{
    givenClosed(card, u"T-1"_s, false);
    givenClosed({}, {}, false);
    givenReturn(card, false);
    givenReturn({}, false);
    EXPECT_EQ(whenRowsAreTold(), QStringList());
}

TEST_F(RegistrationTest, ADeliveredMessageConfirms)
{
    givenClosed(card, {}, true);
    givenReturn(card, true);
    givenMessages(u"state = 'delivered'"_s);
    EXPECT_EQ(whenRowsAreTold(), QStringList());
}

TEST_F(RegistrationTest, EachDocumentIsToldByItsOwnMessage)
{
    givenClosed(card, {}, true);
    givenMessages(u"state = 'delivered'"_s);
    givenClosed(card, {}, true);
    const QStringList rows = whenRowsAreTold();
    ASSERT_EQ(rows.size(), 1);
    EXPECT_TRUE(rows.value(0).startsWith(u"Не подтверждена продажа 18"_s));
}

TEST_F(RegistrationTest, ARowOfTheShiftBeforeIsNotToldAgain)
{
    givenClosed(card, {}, true);
    whenRowsAreTold();
    EXPECT_EQ(whenRowsAreTold(), QStringList());
}

TEST_F(ShiftTest, ABrokenMarkIsAnErrorAndKept)
{
    QFile mark(stateFolder() + u"/shift"_s);
    ASSERT_TRUE(mark.open(QIODevice::WriteOnly));
    mark.write("nonsense");
    mark.close();
    EXPECT_THROW(till->closeShift(), StorageError);
    ASSERT_TRUE(mark.open(QIODevice::ReadOnly));
    EXPECT_EQ(mark.readAll(), "nonsense");
}

} // namespace
