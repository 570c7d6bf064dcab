#include "emulator/api/exchangelog.h"

#include <gtest/gtest.h>

namespace emulator {
namespace {

Exchange exchangeOf(qsizetype bytes)
{
    Exchange exchange;
    exchange.request = QByteArray(bytes, 'x');
    return exchange;
}

TEST(ExchangeLog, CountsOn)
{
    ExchangeLog log;
    log.add({});
    log.add({});
    EXPECT_EQ(log.exchanges().back().id, 2);
}

TEST(ExchangeLog, KeepsTheLastFiveHundred)
{
    ExchangeLog log;
    for (int count = 0; count < 502; ++count)
        log.add({});
    EXPECT_EQ(log.exchanges().size(), 500u);
    EXPECT_EQ(log.exchanges().front().id, 3);
}

TEST(ExchangeLog, DropsOldOnesWhenTheyAreLarge)
{
    constexpr qsizetype twentyMebibytes = 20 * 1024 * 1024;
    ExchangeLog log;
    log.add(exchangeOf(twentyMebibytes));
    log.add(exchangeOf(twentyMebibytes));
    ASSERT_EQ(log.exchanges().size(), 1u);
    EXPECT_EQ(log.exchanges().front().id, 2);
}

TEST(ExchangeLog, KeepsCountingAfterItWasCleared)
{
    ExchangeLog log;
    log.add({});
    log.clear();
    EXPECT_TRUE(log.exchanges().empty());
    log.add({});
    EXPECT_EQ(log.exchanges().front().id, 2);
}

} // namespace
} // namespace emulator
