#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/serviceprocess.h"
#include "tests/emulator/support/xmltree.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

/// The samples of protocol/ told to the program with its built-in data.
class StoryTest : public testing::Test
{
protected:
    QByteArray whenPosted(const QByteArray &request)
    {
        const HttpOutcome outcome = httpPost(service.url(), request);
        EXPECT_EQ(complaintOfSchemaFiles(outcome.body), QString());
        return outcome.body;
    }

    void thenAnswered(const char *request, const char *answer)
    {
        SCOPED_TRACE(request);
        const QStringList timeOfDay = {u"Processed"_s};
        EXPECT_EQ(
            xmlLines(whenPosted(sample(request)), timeOfDay), xmlLines(sample(answer), timeOfDay));
    }

    /// The cheque of the exchange as it is registered, its positions with the answer's attributes.
    static QByteArray registrationOfStickers()
    {
        QByteArray request = sample("stickers-exchange-request.xml");
        request.replace(R"({"activebalance":10,"promocoupons":3,"amount":2,"discount":60.0})",
            R"({"card":"2900000000062","stickers":6,"amount":2,"discount":60.0})");
        request.replace(R"({"activebalance":10,"promocoupons":4,"amount":1,"discount":90.0})",
            R"({"card":"2900000000062","stickers":4,"amount":1,"discount":90.0})");
        request.replace("StickersInterchange", "StickersExchanged");
        return request.replace("\"Soft\"", "\"Fiscal\"");
    }

    void thenStickersAre(const char *stickers)
    {
        const QByteArray card = httpGet(service.api("cards/2900000000062")).body;
        EXPECT_TRUE(card.contains(QByteArray("\"stickers\": ").append(stickers)))
            << card.constData();
    }

    ServiceProcess service;
};

TEST_F(StoryTest, OfASaleGoesAsTheSamplesSay)
{
    thenAnswered("balance-request.xml", "balance-answer.xml");
    thenAnswered("sale-soft-request.xml", "sale-soft-answer.xml");
    thenAnswered("sale-points-request.xml", "sale-points-answer.xml");
    thenAnswered("sale-fiscal-request.xml", "sale-answer.xml");
    thenAnswered("rollback-request.xml", "rollback-answer.xml");
}

TEST_F(StoryTest, OfAChequeWithoutACardGoesAsTheSamplesSay)
{
    thenAnswered("technical-balance-request.xml", "technical-balance-answer.xml");
    thenAnswered("technical-sale-request.xml", "technical-sale-answer.xml");
}

TEST_F(StoryTest, OfARefusalGoesAsTheSamplesSay)
{
    thenAnswered("refusal-request.xml", "refusal-answer.xml");
    whenPosted(sample("sale-soft-request.xml"));
    thenAnswered("points-refused-request.xml", "points-refused-answer.xml");
}

TEST_F(StoryTest, OfStickersGoesAsTheSamplesSay)
{
    thenAnswered("stickers-offer-request.xml", "stickers-offer-answer.xml");
    thenAnswered("stickers-exchange-request.xml", "stickers-exchange-answer.xml");
    thenStickersAre("10.0");
    const QByteArray registration = registrationOfStickers();
    const QByteArray sold = whenPosted(registration);
    EXPECT_EQ(firstValue(sold, u"ReturnCode"_s), u"0");
    EXPECT_EQ(firstValue(sold, u"SummDiscounted"_s), u"607.80");
    EXPECT_EQ(firstValue(sold, u"Key"_s), u"StickersExchanged");
    thenStickersAre("0.0");
    EXPECT_TRUE(httpGet(service.api("transactions")).body.contains("\"stickers\": 6.0"));
    EXPECT_EQ(whenPosted(registration), sold);
    EXPECT_TRUE(httpGet(service.api("audit")).body.contains("\"ok\": true"));
    const QByteArray rollback = sample("rollback-request.xml");
    whenPosted(QByteArray(rollback).replace(">2900000000017<", ">2900000000062<"));
    thenStickersAre("10.0");
}

TEST_F(StoryTest, OfStickersThatAnotherTillHasTakenEndsInARefusal)
{
    QByteArray elsewhere = registrationOfStickers();
    EXPECT_EQ(
        firstValue(whenPosted(elsewhere.replace("<POS>1<", "<POS>2<")), u"ReturnCode"_s), u"0");
    const QByteArray refused = whenPosted(registrationOfStickers());
    EXPECT_EQ(firstValue(refused, u"ReturnCode"_s), u"81330");
    EXPECT_EQ(firstValue(refused, u"Message"_s), u"Недостаточно фишек");
}

TEST_F(StoryTest, OfAReturnGoesAsTheSamplesSay)
{
    whenPosted(sample("sale-soft-request.xml"));
    whenPosted(sample("sale-points-request.xml"));
    const QByteArray sold = whenPosted(sample("sale-fiscal-request.xml"));
    const QByteArray day = firstValue(sold, u"Processed"_s).section(u'T', 0, 0).toUtf8();
    const QByteArray dated = "<DateTime>" + day + "</";
    const QByteArray returned
        = whenPosted(sample("return-request.xml").replace("<DateTime>2024-03-05</", dated));
    EXPECT_EQ(xmlLines(returned, {u"Processed"_s}),
        xmlLines(sample("return-answer.xml"), {u"Processed"_s}));
}

TEST_F(StoryTest, OfAMistakeEndsInTheSampleFault)
{
    const QByteArray wrong = sample("balance-request.xml").replace("CardNumber>", "CardNumer>");
    const HttpOutcome outcome = httpPost(service.url(), wrong);
    EXPECT_EQ(outcome.status, 500);
    EXPECT_EQ(xmlLines(outcome.body), xmlLines(sample("fault.xml")));
}

TEST_F(StoryTest, OfALostAnswerIsCountedOnce)
{
    EXPECT_EQ(httpPost(service.api("faults"), "fiscal lose").body, "fiscal lose 1\n");
    whenPosted(sample("sale-soft-request.xml"));
    whenPosted(sample("sale-points-request.xml"));
    EXPECT_NE(httpPost(service.url(), sample("sale-fiscal-request.xml")).curlCode, 0);
    QByteArray queued = sample("sale-fiscal-request.xml");
    queued.replace("T17:04:09", "T18:00:00");
    queued.replace("<Confirm>1", "<Confirm>0").replace(">4829<", "><");
    const QStringList timeOfDay = {u"Processed"_s};
    EXPECT_EQ(
        xmlLines(whenPosted(queued), timeOfDay), xmlLines(sample("sale-answer.xml"), timeOfDay));
    EXPECT_TRUE(httpGet(service.api("cards/2900000000017")).body.contains("\"balance\": 432.11"));
}

} // namespace
} // namespace emulator
