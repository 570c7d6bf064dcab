#include "emulator/recording/replay.h"

#include "emulator/recording/cardmask.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/xmltree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

class ReplayTest : public testing::Test
{
protected:
    RecordedExchange &given(const QByteArray &request, const QByteArray &answer)
    {
        RecordedExchange exchange;
        exchange.number = static_cast<qint64>(recording.exchanges.size()) + 1;
        exchange.operation = u"any"_s;
        exchange.status = 200;
        exchange.timeTaken = std::chrono::milliseconds(1200);
        exchange.contentType = "text/xml";
        exchange.request = request;
        exchange.answer = answer;
        return recording.exchanges.emplace_back(exchange);
    }

    RecordedExchange &givenMasked(const QByteArray &request, const QByteArray &answer)
    {
        const QList<QByteArray> numbers = cardNumbersIn(request);
        RecordedExchange &exchange
            = given(withMasked(request, numbers), withMasked(answer, numbers));
        exchange.hasMaskedCards = true;
        return exchange;
    }

    static HttpReply whenAsked(Replay &replay, const QByteArray &body)
    {
        HttpRequest request;
        request.method = u"POST"_s;
        request.target = u"/"_s;
        request.body = body;
        return replay.answer(request);
    }

    static QByteArray ofCard(const char *card, const QByteArray &request)
    {
        return QByteArray(request).replace("2900000000017", card);
    }

    const QByteArray balance = sample("balance-request.xml");
    const QByteArray soft = sample("sale-soft-request.xml");
    Recording recording;
};

TEST_F(ReplayTest, AnswersInTheOrderOfRecordingAndRepeatsTheLast)
{
    given(balance, "first");
    given(soft, "other");
    given(balance, "second");
    Replay replay(recording, false);
    for (const char *answer : {"first", "second", "second"})
        EXPECT_EQ(whenAsked(replay, balance).body, answer);
    EXPECT_EQ(whenAsked(replay, soft).body, "other");
}

TEST_F(ReplayTest, AnswersAsWasRecorded)
{
    given(balance, "refused").status = 503;
    Replay replay(recording, false);
    const HttpReply reply = whenAsked(replay, balance);
    EXPECT_EQ(reply.status, 503);
    EXPECT_EQ(reply.contentType, "text/xml");
    EXPECT_EQ(reply.delivery, Delivery::Whole);
    EXPECT_EQ(reply.delay.count(), 0);
}

TEST_F(ReplayTest, AnswersWithTheTimesWhenAsked)
{
    given(balance, "late");
    given(balance, "").status.reset();
    Replay replay(recording, true);
    EXPECT_EQ(whenAsked(replay, balance).delay.count(), 1200);
    EXPECT_EQ(whenAsked(replay, balance).delay.count(), 1200);
}

TEST_F(ReplayTest, ClosesWhatHadNoAnswer)
{
    given(balance, "").status.reset();
    Replay replay(recording, false);
    EXPECT_EQ(whenAsked(replay, balance).delivery, Delivery::Nothing);
}

TEST_F(ReplayTest, SaysWhatItCannotMatch)
{
    given(balance, "");
    Replay replay(recording, false);
    const HttpReply reply = whenAsked(replay, ofCard("2900000000024", balance));
    EXPECT_EQ(reply.status, 500);
    EXPECT_EQ(reply.contentType, "text/xml; charset=utf-8");
    EXPECT_EQ(complaintOfSchemaFiles(reply.body), QString());
    EXPECT_EQ(firstValue(reply.body, u"faultstring"_s),
        u"no answer was recorded for balance, card 2900000000024; nearest is 000001-any: "
        "balance was recorded only for card 2900000000017");
}

TEST_F(ReplayTest, ComparesWholeCardsWhereNoneIsMasked)
{
    given(balance, "answer");
    Replay replay(recording, false);
    EXPECT_EQ(whenAsked(replay, ofCard("2900999990017", balance)).status, 500);
}

TEST_F(ReplayTest, PutsTheTillsOwnCardIntoMaskedAnswers)
{
    givenMasked(balance, "card 2900000000017!");
    Replay replay(recording, false);
    EXPECT_EQ(whenAsked(replay, balance).body, "card 2900000000017!");
    EXPECT_EQ(whenAsked(replay, ofCard("2900999990017", balance)).body, "card 2900999990017!");
    EXPECT_EQ(whenAsked(replay, ofCard("2900*****0017", balance)).body, "card 2900*****0017!");
}

TEST_F(ReplayTest, ComparesMaskedWhereAnyCardIs)
{
    given(balance, "plain 2900*****0017");
    givenMasked(balance, "masked 2900000000017");
    Replay replay(recording, false);
    EXPECT_EQ(whenAsked(replay, balance).body, "plain 2900*****0017");
    EXPECT_EQ(whenAsked(replay, balance).body, "masked 2900000000017");
}

TEST_F(ReplayTest, ShowsNoWholeCardWhereTheyAreMasked)
{
    givenMasked(soft, "");
    Replay replay(recording, false);
    EXPECT_THAT(whenAsked(replay, balance).body.toStdString(), HasSubstr("card 2900*****0017;"));
}

TEST_F(ReplayTest, SumsUp)
{
    given(balance, "");
    given(soft, "");
    given(soft, "");
    Replay replay(recording, false);
    whenAsked(replay, soft);
    whenAsked(replay, "junk");
    EXPECT_EQ(replay.summary(),
        u"matched 1, not matched 1, recorded but never asked for: 2 (000001-any, 000003-any)");
    whenAsked(replay, soft);
    whenAsked(replay, balance);
    EXPECT_EQ(replay.summary(), u"matched 3, not matched 1, recorded but never asked for: 0");
}

TEST_F(ReplayTest, HasNoApiAndNoPage)
{
    given(balance, "");
    Replay replay(recording, false);
    HttpRequest request;
    request.method = u"POST"_s;
    request.body = balance;
    for (const char *target : {"/api/cards", "/api/", "/console", "/console?x"}) {
        request.target = QString::fromLatin1(target);
        EXPECT_EQ(replay.answer(request).status, 404);
    }
    request.target = u"/any/path?x"_s;
    EXPECT_EQ(replay.answer(request).status, 200);
    request.method = u"GET"_s;
    EXPECT_EQ(replay.answer(request).status, 405);
}

TEST_F(ReplayTest, IsForTillsOnly)
{
    given(balance, "");
    Replay replay(recording, false);
    HttpRequest request;
    request.method = u"POST"_s;
    request.target = u"http://elsewhere/"_s;
    EXPECT_EQ(replay.answer(request).status, 400);
    request.target = u"/"_s;
    request.fromPage = true;
    EXPECT_EQ(replay.answer(request).status, 403);
    EXPECT_TRUE(replay.summary().startsWith(u"matched 0, not matched 0"));
}

} // namespace
} // namespace emulator
