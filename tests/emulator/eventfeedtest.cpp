// What is new is told once, to each listener by itself.

#include "emulator/api/eventfeed.h"

#include "tests/emulator/support/desktest.h"

#include <nlohmann/json.hpp>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class EventFeedTest : public DeskTest
{
protected:
    void givenExchanges(int count = 1)
    {
        for (int exchange = 0; exchange < count; ++exchange)
            log.add({});
    }

    nlohmann::json whenTold()
    {
        const QByteArray piece = feed.next();
        EXPECT_TRUE(piece.startsWith("data: ") && piece.endsWith("\n\n")) << piece.toStdString();
        EXPECT_EQ(piece.count('\n'), 2);
        return nlohmann::json::parse(piece.mid(6).toStdString());
    }

    FaultPlan plan;
    ExchangeLog log;
    EventFeed feed{desk(), plan, log};
};

TEST_F(EventFeedTest, BeginsWithAllThatIsThere)
{
    givenExchanges(2);
    plan.add(Fault());
    const auto news = whenTold();
    EXPECT_EQ(news["reset"], true);
    EXPECT_EQ(news["exchanges"].size(), 2u);
    EXPECT_EQ(news["faults"].size(), 1u);
    EXPECT_EQ(news["codes"].size(), 0u);
}

TEST_F(EventFeedTest, BeginsAlsoWhenThereIsNothing)
{
    EXPECT_EQ(whenTold(), nlohmann::json::parse(R"({"reset": true, "faults": [], "codes": [],
                                                    "exchanges": []})"));
    EXPECT_EQ(feed.next(), "");
}

TEST_F(EventFeedTest, TellsAnExchangeOnce)
{
    static_cast<void>(feed.next());
    givenExchanges();
    const auto news = whenTold();
    EXPECT_EQ(news["reset"], false);
    ASSERT_EQ(news["exchanges"].size(), 1u);
    EXPECT_EQ(news["exchanges"][0]["id"], 1);
    EXPECT_EQ(feed.next(), "");
}

TEST_F(EventFeedTest, TellsOfFaultsAloneWhenOnlyTheyHaveChanged)
{
    plan.add(Fault());
    static_cast<void>(feed.next());
    EXPECT_TRUE(plan.setOn(1, false));
    const auto news = whenTold();
    EXPECT_EQ(news["faults"][0]["on"], false);
    EXPECT_FALSE(news.contains("exchanges"));
    EXPECT_EQ(feed.next(), "");
}

TEST_F(EventFeedTest, BeginsAgainAfterAReset)
{
    givenExchanges();
    static_cast<void>(feed.next());
    log.clear();
    const auto news = whenTold();
    EXPECT_EQ(news["reset"], true);
    EXPECT_EQ(news["exchanges"].size(), 0u);
    EXPECT_EQ(feed.next(), "");
}

TEST_F(EventFeedTest, MissesOldOnesRatherThanFallingBehind)
{
    static_cast<void>(feed.next());
    givenExchanges(300);
    const auto news = whenTold();
    ASSERT_EQ(news["exchanges"].size(), 200u);
    EXPECT_EQ(news["exchanges"][0]["id"], 101);
    EXPECT_EQ(news["exchanges"][199]["id"], 300);
}

} // namespace
} // namespace emulator
