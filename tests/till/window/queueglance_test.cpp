// A look at the queue by the program that looks after it.

#include "host/queue/dbqueuebroker.h"
#include "tests/support/hostfixture.h"
#include "tests/support/printers.h"
#include "till/window/queueglance.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class QueueGlanceTest : public HostFixture, public testing::Test
{
public:
    static constexpr int longestLook = 30000; // milliseconds

    till::RunOptions options(const QString &state) const
    {
        till::RunOptions chosen;
        chosen.stateFolder = state;
        return chosen;
    }
};

TEST_F(QueueGlanceTest, SeesWhatWaits)
{
    Singleton<DBQueueBroker>::instance()->enqueue(
        u"any"_s, {{u"url"_s, u"http://127.0.0.1/"_s}}, {});
    till::QueueGlance glance(QStringLiteral(TILL_PROGRAM), options(stateFolder()));
    QueueOffice::Status seen;
    QObject::connect(&glance, &till::QueueGlance::seen, &glance,
        [&seen](const QueueOffice::Status &status) { seen = status; });
    QSignalSpy looks(&glance, &till::QueueGlance::seen);
    glance.look();
    glance.look();
    ASSERT_TRUE(looks.wait(longestLook));
    EXPECT_EQ(seen.counts.value(MessageState::Pending), 1);
    EXPECT_EQ(seen.counts.value(MessageState::Sending), 0);
    EXPECT_TRUE(seen.oldestWaiting.isValid());
    EXPECT_EQ(looks.size(), 1);
}

TEST_F(QueueGlanceTest, SaysWhyItCannotLook)
{
    till::QueueGlance glance(QStringLiteral(TILL_PROGRAM), options(u"/nowhere"_s));
    QSignalSpy failures(&glance, &till::QueueGlance::failed);
    glance.look();
    ASSERT_TRUE(failures.wait(longestLook));
    EXPECT_TRUE(failures.constFirst().constFirst().toString().contains(u"/nowhere"));
}

TEST_F(QueueGlanceTest, SaysThatTheProgramIsMissing)
{
    till::QueueGlance glance(u"/nowhere/korvel-till"_s, {});
    QSignalSpy failures(&glance, &till::QueueGlance::failed);
    glance.look();
    EXPECT_TRUE(!failures.isEmpty() || failures.wait(longestLook));
}

TEST_F(QueueGlanceTest, ALookThatGoesOnEndsWithIt)
{
    auto glance = std::make_unique<till::QueueGlance>(u"/bin/cat"_s, till::RunOptions());
    glance->look();
    glance.reset();
}

} // namespace
