// A message is on disk when enqueue returns, whole, and the cashier hears of one that is not.

#include "host/framework/basicexception.h"
#include "host/framework/currenttime.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/host/storage/files.h"
#include "tests/support/logcapture.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class FrozenTime : public CurrentTime
{
public:
    [[nodiscard]] QDateTime currentDateTime() const override
    {
        return QDateTime(QDate(2024, 11, 21), QTime(12, 30, 1, 5), Qt::UTC);
    }
};

class EnqueueTest : public testing::Test, public QueueFixture
{
protected:
    /// A file stands where the folder of the queue would be.
    static void givenNoFolder() { files::put(QFileInfo(databaseFile()).absolutePath(), {}); }
    void whenRestarted() { Singleton<DBQueueBroker>::reset(); }

    [[nodiscard]] static tr::Tr errorOfEnqueue()
    {
        try {
            queue()->enqueue(u"loyalty"_s, {}, {});
        } catch (const BasicException &error) {
            return error.tr();
        }
        return {};
    }
};

TEST_F(EnqueueTest, AnotherProcessSeesTheMessageAtOnce)
{
    givenMessage(u"<a>\u0001Ёж</a>"_s);
    EXPECT_EQ(ask(u"SELECT queue, url, headers, body, state, attempts FROM messages"_s),
        (QVariantList{u"loyalty"_s, u"http://service/"_s,
            u"{\"Authorization\":\"Basic c2VjcmV0\"}"_s, u"<a>\u0001Ёж</a>"_s.toUtf8(),
            u"pending"_s, 0}));
}

TEST_F(EnqueueTest, MessageIsThereAfterARestart)
{
    givenMessage(u"one"_s);
    whenRestarted();
    EXPECT_EQ(queue()->waiting(), 1);
    whenDelivered();
    EXPECT_EQ(sentBodies(), QStringList{u"one"_s});
}

TEST_F(EnqueueTest, MessageIsTiedToTheDocumentAndTheTime)
{
    MockFactory<CurrentTime>::setCreator([] { return QSharedPointer<FrozenTime>::create(); });
    givenCurrentDocument()->setCorrelationId(u"c-1"_s);
    queue()->enqueue(u"loyalty"_s, {}, u"remark"_s);
    const QueueMessage message = queue()->list().first();
    EXPECT_EQ(message.correlationId, u"c-1"_s);
    EXPECT_EQ(message.lane, document()->getShop() + u'-' + document()->getTill());
    EXPECT_EQ(message.remark, u"remark"_s);
    EXPECT_EQ(message.enqueued, FrozenTime().currentDateTime());
    EXPECT_EQ(message.nextAttempt, FrozenTime().currentDateTime());
}

TEST_F(EnqueueTest, EveryMessageHasAnIdOfItsOwn)
{
    givenMessage(u"same"_s);
    givenMessage(u"same"_s);
    const auto messages = queue()->list();
    EXPECT_FALSE(QUuid(messages.at(0).id).isNull());
    EXPECT_NE(messages.at(0).id, messages.at(1).id);
    EXPECT_LT(messages.at(0).number, messages.at(1).number);
}

TEST_F(EnqueueTest, EmptyQueueHasNothing)
{
    EXPECT_EQ(queue()->waiting(), 0);
    EXPECT_TRUE(queue()->list().isEmpty());
}

TEST_F(EnqueueTest, ListGivesNoCredentialsAway)
{
    givenMessage(u"body"_s);
    EXPECT_TRUE(queue()->list().first().headers.isEmpty());
    EXPECT_TRUE(queue()->list().first().body.isEmpty());
}

TEST_F(EnqueueTest, CashierHearsOfAMessageThatCannotBeKept)
{
    givenNoFolder();
    const tr::Tr error = errorOfEnqueue();
    EXPECT_EQ(error.id(), u"queueMessageNotKept"_s);
    EXPECT_TRUE(error.ru().startsWith(u"Не удалось сохранить чек в очередь отправки: "_s));
    EXPECT_TRUE(error.ru().contains(QFileInfo(databaseFile()).absolutePath()));
}

TEST_F(EnqueueTest, FailureIsLoggedWithoutCredentials)
{
    const LogCapture log(u"poshost.queue"_s);
    givenNoFolder();
    EXPECT_THROW(givenMessage(u"body"_s), BasicException);
    ASSERT_FALSE(log.lines().isEmpty());
    EXPECT_FALSE(log.lines().join(u'\n').contains(u"c2VjcmV0"_s));
}

TEST_F(EnqueueTest, SettingNamesTheFile)
{
    const QString fileName = stateFolder() + u"/elsewhere/shop.sqlite"_s;
    givenSetting(u"Queue:database"_s, fileName);
    givenMessage(u"one"_s);
    EXPECT_TRUE(QFile::exists(fileName));
    EXPECT_FALSE(QFile::exists(databaseFile()));
}

TEST_F(EnqueueTest, WithAWrongAddressMessagesStayOnThisMachine)
{
    const LogCapture log(u"poshost.queue"_s);
    givenSetting(u"Queue:database"_s, u"postgresql://shop/queue"_s);
    givenMessage(u"one"_s);
    EXPECT_EQ(ask(u"SELECT count(*) FROM messages"_s), QVariantList{1});
    EXPECT_EQ(queue()->waiting(), 1);
    EXPECT_THROW(whenDelivered(), StorageError);
    EXPECT_TRUE(log.lines().first().contains(u"Queue:database: не указан пользователь"_s));
}

} // namespace
