// What is kept of the exchanges.

#include "host/net/restclient.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/frozenclock.h"

using namespace Qt::StringLiterals;
using till::ExchangeLog;

namespace {

class ExchangeLogTest : public TillFixture
{
public:
    static void whenPosted(const QUrl &url, const QByteArray &body)
    {
        MockFactory<RestClient>::create()->post(
            url, body, {{u"Authorization"_s, u"Basic c2VjcmV0"_s}});
    }
    till::ExchangeRecord last() const { return exchanges->log().records().constLast(); }
};

TEST_F(ExchangeLogTest, AnExchangeIsKeptAsItWasWithItsTime)
{
    till::FrozenClock clock;
    const QDateTime noon(QDate(2026, 3, 1), QTime(12, 0));
    clock.freeze(noon);
    ScriptedServer service;
    service.answer("<yes/>");
    whenPosted(service.url(), "<question/>");
    EXPECT_EQ(last().begun, noon);
    EXPECT_GE(last().duration.count(), 0);
    EXPECT_EQ(last().request, "<question/>");
    EXPECT_EQ(last().answer, "<yes/>");
    EXPECT_EQ(last().error, 0);
    EXPECT_TRUE(last().errorMessage.isEmpty());
}

TEST_F(ExchangeLogTest, AFailureIsKeptWithWhatTheServerSaid)
{
    ScriptedServer service;
    service.answer("<fault/>", 500);
    whenPosted(service.url(), "<question/>");
    EXPECT_EQ(last().answer, "<fault/>");
    EXPECT_EQ(last().error, 500);
    EXPECT_FALSE(last().errorMessage.isEmpty());
}

TEST_F(ExchangeLogTest, TheOldestMakeRoom)
{
    ExchangeLog log;
    for (int number = 0; number <= ExchangeLog::capacity; ++number)
        log.add({{}, {}, QByteArray::number(number), {}, 0, {}});
    ASSERT_EQ(log.records().size(), ExchangeLog::capacity);
    EXPECT_EQ(log.records().constFirst().request, "1");
    EXPECT_EQ(log.records().constLast().request, QByteArray::number(ExchangeLog::capacity));
}

TEST_F(ExchangeLogTest, LongTextsAreCut)
{
    ExchangeLog log;
    const QByteArray tooLong(ExchangeLog::longestText + 1, 'x');
    log.add({{}, {}, tooLong, tooLong, 0, {}});
    EXPECT_EQ(log.records().constLast().request.size(), ExchangeLog::longestText);
    EXPECT_EQ(log.records().constLast().answer.size(), ExchangeLog::longestText);
}

} // namespace
