#include "host/net/connectattempt.h"
#include "tests/host/net/nameservers.h"
#include "tests/host/net/refusedport.h"
#include "tests/host/net/tlsserver.h"
#include "tests/support/scriptedserver.h"

#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;

namespace {

bool connects(const QUrl &url, const ExchangeSettings &settings = {})
{
    return canConnect(url, settings, std::stop_token());
}

TEST(ConnectAttempt, SucceedsWhereAServerListens)
{
    const ScriptedServer server;

    EXPECT_TRUE(connects(server.url()));
    EXPECT_TRUE(server.requests().isEmpty());
}

TEST(ConnectAttempt, FailsWhereNobodyListens)
{
    EXPECT_FALSE(connects(RefusedPort().url()));
}

TEST(ConnectAttempt, FailsWhereAnExchangeWouldFindNoTrust)
{
    const TlsServer server;
    ExchangeSettings trusting;
    trusting.caFile = QFile::encodeName(server.certificateFile());

    EXPECT_FALSE(connects(server.url()));
    EXPECT_TRUE(connects(server.url(), trusting));
}

TEST(ConnectAttempt, SharesNamesAndSessionsWithThoseOfOtherThreads)
{
    const TlsServer server;
    ExchangeSettings trusting;
    trusting.caFile = QFile::encodeName(server.certificateFile());
    std::atomic<int> connected = 0;
    std::array<std::jthread, 4> threads;
    for (std::jthread &thread : threads) {
        thread = std::jthread([&] {
            for (int i = 0; i < 5; ++i)
                connected += connects(server.url(), trusting) ? 1 : 0;
        });
    }
    for (std::jthread &thread : threads)
        thread.join();

    EXPECT_EQ(connected, 20);
}

TEST(ConnectAttempt, EndsEarlyWhenAskedToStop)
{
    const SilentNameServer nameServer;
    const auto begun = std::chrono::steady_clock::now();
    bool connected = true;
    {
        const std::jthread attempt([&connected](const std::stop_token &stop) {
            connected = canConnect(SilentNameServer::url(), {}, stop);
        });
    }

    EXPECT_FALSE(connected);
    EXPECT_LT(std::chrono::steady_clock::now() - begun, 2s);
}

} // namespace
