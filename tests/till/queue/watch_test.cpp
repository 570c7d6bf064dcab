// The delivery service goes on behind a pass that the disk let down.

#include "host/net/restclient.h"
#include "host/queue/messagestore.h"
#include "host/storage/statefolder.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"
#include "till/queue/watch.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace till;

namespace {

/// A service that accepts everything, after the test has done what it wants to.
class AcceptingClient : public RestClient
{
public:
    explicit AcceptingClient(const std::function<void()> &action)
        : m_action(action)
    { }
    void post(const QUrl &, const QByteArray &, const QHash<QString, QString> &) override
    {
        m_action();
    }

private:
    std::function<void()> m_action;
};

class WatchTest : public testing::Test, public HostFixture
{
protected:
    WatchTest()
    {
        MockFactory<RestClient>::setCreator([this] {
            return QSharedPointer<AcceptingClient>::create([this] {
                ++sent;
                if (sent == sentAtMost)
                    ::raise(SIGTERM);
            });
        });
        queue->enqueue(u"loyalty"_s, {{u"url"_s, u"http://service/"_s}}, {});
    }
    static void run(const QString &statement)
    {
        const QString file = Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s;
        MessageStore(file).database().run(statement);
    }
    void whenWatched()
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        Watch(*queue, stop, false, 0ms).run();
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
    }

    DBQueueBroker *queue = Singleton<DBQueueBroker>::instance();
    const StopRequest stop;
    int sent = 0;
    int sentAtMost = 1;
    std::string output;
    std::string errors;
};

TEST_F(WatchTest, WhatCouldNotBeNotedIsSentAgain)
{
    const LogCapture log(u"till.watch"_s);
    sentAtMost = 2;
    run(u"CREATE TRIGGER failing BEFORE UPDATE ON messages WHEN new.state = 'delivered' "
        u"AND new.attempts < 2 BEGIN SELECT RAISE(ABORT, 'disk I/O error'); END"_s);
    whenWatched();
    EXPECT_EQ(sent, 2);
    EXPECT_EQ(queue->waiting(), 0);
    EXPECT_NE(errors.find("disk I/O error"), std::string::npos) << errors;
    EXPECT_EQ(log.lines().filter(u"disk I/O error"_s).size(), 1);
    EXPECT_EQ(output, "delivered 1, refused 0, failed 0, parked 0; waiting 0\n");
}

TEST_F(WatchTest, WithoutTroubleNothingIsToldOfTrouble)
{
    whenWatched();
    EXPECT_EQ(sent, 1);
    EXPECT_EQ(errors, "");
}

} // namespace
