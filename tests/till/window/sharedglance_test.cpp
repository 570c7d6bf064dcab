// A look at a queue that many tills share, while its server is there and while it is not.

#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/spillmessage.h"
#include "tests/support/hostfixture.h"
#include "till/window/queueglance.h"

#include <QFile>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class SharedGlanceTest : public HostFixture, public testing::Test
{
public:
    static constexpr int longestLook = 30000; // milliseconds

    SharedGlanceTest()
    {
        queueengine::begin();
        m_options.stateFolder = stateFolder();
        m_options.configFile = stateFolder() + u"/shared.ini"_s;
        QFile file(m_options.configFile);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Queue]\ndatabase=" + queueengine::setting().toUtf8() + '\n');
    }

    /// Looks once and waits for what was seen.
    QueueOffice::Status whenLooked()
    {
        till::QueueGlance glance(QStringLiteral(TILL_PROGRAM), m_options);
        QueueOffice::Status result;
        QObject::connect(&glance, &till::QueueGlance::seen, &glance,
            [&result](const QueueOffice::Status &status) { result = status; });
        QSignalSpy looks(&glance, &till::QueueGlance::seen);
        QSignalSpy failures(&glance, &till::QueueGlance::failed);
        glance.look();
        EXPECT_TRUE(looks.wait(longestLook));
        EXPECT_TRUE(failures.isEmpty());
        return result;
    }

private:
    till::RunOptions m_options;
};

TEST_F(SharedGlanceTest, SeesTheMessagesOfEveryTill)
{
    EXPECT_EQ(whenLooked().counts.value(MessageState::Pending), 0);
    queueengine::openStore()->append(makeMessage(u"a"_s));
    queueengine::openStore()->append(makeMessage(u"b"_s));

    const QueueOffice::Status status = whenLooked();

    EXPECT_EQ(status.counts.value(MessageState::Pending), 2);
    EXPECT_TRUE(status.oldestWaiting.isValid());
}

TEST_F(SharedGlanceTest, SeesNoneOfThemWhileTheServerIsAway)
{
    queueengine::openStore()->append(makeMessage(u"a"_s));
    PostgresServer::instance()->stop();
    const QueueOffice::Status status = whenLooked();
    PostgresServer::instance()->start();

    EXPECT_EQ(status.counts.value(MessageState::Pending), 0);
}

} // namespace
