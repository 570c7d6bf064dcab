#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/serviceprocess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace Qt::Literals::StringLiterals;
using Json = nlohmann::json;

namespace emulator {
namespace {

class ApiTest : public testing::Test
{
protected:
    void givenSale()
    {
        for (const char *request :
            {"sale-soft-request.xml", "sale-points-request.xml", "sale-fiscal-request.xml"})
            EXPECT_EQ(httpPost(service.url(), sample(request)).status, 200);
    }

    Json whenRead(const char *path)
    {
        const HttpOutcome outcome = httpGet(service.api(path));
        EXPECT_EQ(outcome.status, 200);
        EXPECT_THAT(outcome.headers.toStdString(),
            testing::HasSubstr("Content-Type: application/json\r\n"));
        return Json::parse(outcome.body.toStdString());
    }

    ServiceProcess service;
};

TEST_F(ApiTest, ListsTheCards)
{
    const Json cards = whenRead("cards");
    ASSERT_EQ(cards.size(), 5u);
    EXPECT_EQ(cards[0]["number"], "2900000000017");
    EXPECT_EQ(cards[0]["type"], "Золотая");
    EXPECT_EQ(cards[0]["balance"], 500.0);
    EXPECT_EQ(cards[2]["status"], 3);
    EXPECT_EQ(cards[4]["stickers"], 10.0);
    EXPECT_EQ(cards[0]["stickers"], 0.0);
}

TEST_F(ApiTest, ShowsACardWithItsLedger)
{
    givenSale();
    const Json card = whenRead("cards/2900000000017");
    EXPECT_EQ(card["balance"], 432.11);
    EXPECT_EQ(card["statusBalance"], 6.42);
    ASSERT_EQ(card["ledger"].size(), 4u);
    EXPECT_EQ(card["ledger"][1]["kind"], "spent");
    EXPECT_EQ(card["ledger"][1]["amount"], -100.0);
    EXPECT_EQ(card["ledger"][1]["transaction"], "0000000001");
    EXPECT_EQ(card["ledger"][2]["balance"], 432.11);
}

TEST_F(ApiTest, ShowsCodesThatWaitToBeTyped)
{
    httpPost(service.url(), sample("sale-soft-request.xml"));
    httpPost(service.url(), sample("sale-points-request.xml"));
    const Json card = whenRead("cards/2900000000017");
    EXPECT_EQ(card["codes"], Json::parse(R"([{"cheque": "17", "code": "4829"}])"));
}

TEST_F(ApiTest, DoesNotKnowEveryCard)
{
    EXPECT_EQ(httpGet(service.api("cards/404")).status, 404);
}

TEST_F(ApiTest, ListsTransactionsWithTheirPositions)
{
    givenSale();
    const Json transactions = whenRead("transactions");
    ASSERT_EQ(transactions.size(), 1u);
    EXPECT_EQ(transactions[0]["id"], "0000000001");
    EXPECT_EQ(transactions[0]["kind"], "sale");
    EXPECT_EQ(transactions[0]["rolledBack"], false);
    EXPECT_EQ(transactions[0]["positions"][2]["quantity"], 0.5);
    EXPECT_EQ(transactions[0]["positions"][0]["spent"], 10.58);
}

TEST_F(ApiTest, ListsExchangesNewestFirst)
{
    givenSale();
    httpPost(service.url(), "nonsense");
    const Json exchanges = whenRead("exchanges");
    ASSERT_EQ(exchanges.size(), 4u);
    EXPECT_EQ(exchanges[0]["operation"], nullptr);
    EXPECT_EQ(exchanges[0]["status"], 500);
    EXPECT_EQ(exchanges[1]["operation"], "fiscal");
    EXPECT_EQ(exchanges[1]["card"], "2900000000017");
    EXPECT_EQ(exchanges[1]["number"], "17");
    EXPECT_EQ(exchanges[1]["code"], 0);
    EXPECT_FALSE(exchanges[1].contains("request"));
}

TEST_F(ApiTest, GivesTheTextsOfExchangesWhenAsked)
{
    httpPost(service.api("faults"), "balance lose");
    httpPost(service.url(), sample("balance-request.xml"));
    const Json exchange = whenRead("exchanges?full=1")[0];
    EXPECT_EQ(exchange["fault"], "balance lose 1");
    EXPECT_THAT(exchange["request"].get<std::string>(), testing::HasSubstr("<BalanceRequest>"));
    EXPECT_THAT(exchange["answer"].get<std::string>(), testing::HasSubstr("<BalanceResponse>"));
}

TEST_F(ApiTest, ListsFaultsToCome)
{
    httpPost(service.api("faults"), "all delay 5 always");
    httpPost(service.api("faults"), "refuse 1");
    // Reading the list takes a connection, and that one is refused.
    EXPECT_NE(httpGet(service.api("faults")).curlCode, 0);
    EXPECT_EQ(whenRead("faults"),
        Json::parse(R"([{"id": 1, "on": true, "words": "all delay 5 always", "operation": "all",
                         "fault": "delay", "left": null}])"));
}

TEST_F(ApiTest, ListsFaultsOfConnections)
{
    httpPost(service.api("faults"), "stall 0 3");
    EXPECT_EQ(whenRead("faults"),
        Json::parse(R"([{"id": 1, "on": true, "words": "stall 0 2", "operation": null,
                         "fault": "stall", "left": 2}])"));
}

TEST_F(ApiTest, SwitchesAFaultOffAndOn)
{
    httpPost(service.api("faults"), "all status 503 always");
    EXPECT_EQ(httpPost(service.api("faults/1"), "off").body, "off\n");
    EXPECT_EQ(whenRead("faults")[0]["on"], false);
    EXPECT_EQ(httpPost(service.url(), sample("balance-request.xml")).status, 200);
    EXPECT_EQ(httpPost(service.api("faults/1"), "on").status, 200);
    EXPECT_EQ(httpPost(service.url(), sample("balance-request.xml")).status, 503);
    EXPECT_EQ(httpPost(service.api("faults/1"), "maybe").status, 400);
    EXPECT_EQ(httpPost(service.api("faults/9"), "on").status, 404);
}

TEST_F(ApiTest, TakesOneFaultOut)
{
    httpPost(service.api("faults"), "soft lose");
    httpPost(service.api("faults"), "soft reset");
    EXPECT_EQ(httpDelete(service.api("faults/1")).status, 200);
    EXPECT_EQ(whenRead("faults")[0]["words"], "soft reset 1");
    EXPECT_EQ(httpDelete(service.api("faults/1")).status, 404);
    EXPECT_EQ(httpDelete(service.api("cards/2900000000017")).status, 404);
}

TEST_F(ApiTest, TellsWhatTheBooksDid)
{
    givenSale();
    const Json exchanges = whenRead("exchanges");
    EXPECT_EQ(exchanges[0]["pos"], "1");
    EXPECT_EQ(exchanges[0]["books"]["transaction"], "0000000001");
    ASSERT_EQ(exchanges[0]["books"]["entries"].size(), 3u);
    EXPECT_EQ(exchanges[0]["books"]["entries"][0]["kind"], "spent");
    EXPECT_EQ(exchanges[0]["books"]["entries"][0]["amount"], -100.0);
    EXPECT_EQ(exchanges[1]["books"], Json::parse(R"({"transaction": null, "entries": []})"));
    EXPECT_GT(exchanges[0]["milliseconds"], 0.0);
}

TEST_F(ApiTest, AnOrderedWaitCountsAsTimeOfTheExchange)
{
    httpPost(service.api("faults"), "balance delay 20");
    httpPost(service.url(), sample("balance-request.xml"));
    EXPECT_GE(whenRead("exchanges")[0]["milliseconds"], 20.0);
}

TEST_F(ApiTest, GivesOneExchangeAsItCameOrForReading)
{
    const QByteArray request = sample("balance-request.xml").replace("\n", " ");
    httpPost(service.url(), request);
    EXPECT_EQ(whenRead("exchanges/1")["request"], request.toStdString());
    EXPECT_THAT(whenRead("exchanges/1?pretty=1")["request"].get<std::string>(),
        testing::HasSubstr("\n            <CardNumber>2900000000017</CardNumber>\n"));
    EXPECT_EQ(httpGet(service.api("exchanges/2")).status, 404);
}

TEST_F(ApiTest, WhatIsNoXmlIsReadAsItCame)
{
    httpPost(service.url(), "<no \xff xml");
    EXPECT_EQ(whenRead("exchanges/1?pretty=1")["request"], "<no \uFFFD xml");
}

TEST_F(ApiTest, ListsTheCodesOfAllCards)
{
    httpPost(service.url(), sample("sale-soft-request.xml"));
    httpPost(service.url(), sample("sale-points-request.xml"));
    EXPECT_EQ(whenRead("codes"),
        Json::parse(R"([{"card": "2900000000017", "pos": "1", "cheque": "17", "code": "4829"}])"));
}

TEST_F(ApiTest, ExplainsWrongFaultWords)
{
    const HttpOutcome outcome = httpPost(service.api("faults"), "soft lse");
    EXPECT_EQ(outcome.status, 400);
    EXPECT_THAT(outcome.body.toStdString(), testing::HasSubstr("\"lse\": expected one of"));
}

TEST_F(ApiTest, AuditsTheBooks)
{
    givenSale();
    EXPECT_EQ(
        whenRead("audit"), Json::parse(R"({"ok": true, "cards": 5, "entries": 8, "transactions": 1,
                        "problems": []})"));
}

TEST_F(ApiTest, ResetStartsOver)
{
    givenSale();
    httpPost(service.api("faults"), "all reset always");
    EXPECT_EQ(httpPost(service.api("reset"), "").status, 200);
    EXPECT_EQ(whenRead("cards")[0]["balance"], 500.0);
    EXPECT_EQ(whenRead("transactions").size(), 0u);
    EXPECT_EQ(whenRead("exchanges").size(), 0u);
    EXPECT_EQ(whenRead("faults").size(), 0u);
}

TEST_F(ApiTest, StopEndsTheService)
{
    EXPECT_EQ(httpPost(service.api("stop"), "").status, 200);
    EXPECT_EQ(service.waitForEnd(), 0);
}

} // namespace
} // namespace emulator
