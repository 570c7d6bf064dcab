// What answers to queued messages mean.

#include "host/net/restclient.h"
#include "tests/support/hostfixture.h"
#include "till/core/loyaltyverdict.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

QByteArray answerWith(const QByteArray &code)
{
    return "<E><ChequeResponse><ReturnCode>" + code + "</ReturnCode></ChequeResponse></E>";
}

struct Row
{
    const char *name;
    int errorCode;
    QByteArray body;
    Verdict::Outcome outcome;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

class LoyaltyVerdictTest : public testing::TestWithParam<Row>
{ };

TEST_P(LoyaltyVerdictTest, Judges)
{
    const Row &row = GetParam();
    EXPECT_EQ(till::judgeLoyaltyAnswer(row.errorCode, row.body, {77001}).outcome, row.outcome);
}

constexpr auto delivered = Verdict::Outcome::Delivered;
constexpr auto refused = Verdict::Outcome::Refused;
constexpr auto again = Verdict::Outcome::TryAgain;

INSTANTIATE_TEST_SUITE_P(Answers, LoyaltyVerdictTest,
    testing::Values(Row{"Zero", 0, answerWith("0"), delivered},
        Row{"Negative", 0, answerWith("-1"), delivered},
        Row{"WithBlanks", 0, answerWith(" 0 "), delivered},
        Row{"Code80241", 0, answerWith("80241"), refused},
        Row{"Code80420", 0, answerWith("80420"), refused},
        Row{"Code81330", 0, answerWith("81330"), refused},
        Row{"Code83000", 0, answerWith("83000"), refused},
        Row{"Code89184", 0, answerWith("89184"), refused},
        Row{"CodeOfTheSettings", 0, answerWith("77001"), refused},
        Row{"AnotherCode", 0, answerWith("77002"), again},
        Row{"Code81400", 0, answerWith("81400"), again}, Row{"NoCode", 0, "<E/>", again},
        Row{"EmptyCode", 0, answerWith(""), again}, Row{"NoNumber", 0, answerWith("ok"), again},
        Row{"FirstCodeCounts", 0,
            "<ChequeResponse><ReturnCode>1</ReturnCode><ReturnCode>0</ReturnCode></ChequeResponse>",
            again},
        Row{"Balance", 0, "<BalanceResponse><ReturnCode>0</ReturnCode></BalanceResponse>",
            delivered},
        Row{"InAnElementOfTheAnswer", 0,
            "<ChequeResponse><a><ReturnCode>0</ReturnCode></a></ChequeResponse>", delivered},
        Row{"OutsideOfAnAnswer", 0, "<E><ReturnCode>0</ReturnCode></E>", again},
        Row{"BehindAnAnswer", 0, "<E><ChequeResponse/><ReturnCode>0</ReturnCode></E>", again},
        Row{"FirstOutsideCounts", 0,
            "<E><ReturnCode>0</ReturnCode><ChequeResponse><ReturnCode>0</ReturnCode>"
            "</ChequeResponse></E>",
            again},
        Row{"AnotherResponse", 0, "<LoginResponse><ReturnCode>0</ReturnCode></LoginResponse>",
            again},
        Row{"PrefixedCode", 0,
            "<ChequeResponse xmlns:p='u'><p:ReturnCode>0</p:ReturnCode></ChequeResponse>", again},
        Row{"PrefixedAnswer", 0,
            "<p:ChequeResponse xmlns:p='u'><ReturnCode>0</ReturnCode></p:ChequeResponse>", again},
        Row{"CutAnswer", 0, "<E><ReturnCode>0</ReturnCode>", again},
        Row{"NotXml", 0, "<html><br></html>", again}, Row{"Empty", 0, "", again},
        Row{"HttpError", 500, answerWith("0"), again},
        Row{"TimedOut", RestClient::TimedOut, answerWith("0"), again}),
    [](const auto &row) { return row.param.name; });

TEST(LoyaltyVerdictTextTest, TellsTheServicesCode)
{
    EXPECT_EQ(till::judgeLoyaltyAnswer(0, answerWith("80241"), {}).code, 80241);
    EXPECT_EQ(till::judgeLoyaltyAnswer(503, {}, {}).code, 0);
}

TEST(LoyaltyVerdictTextTest, WhatWouldKeepAReaderBusyIsNotTheServices)
{
    const QByteArray answer = answerWith("0");
    EXPECT_EQ(till::judgeLoyaltyAnswer(0, answer, {}).outcome, Verdict::Outcome::Delivered);
    EXPECT_EQ(till::judgeLoyaltyAnswer(0, "<!DOCTYPE a>" + answer, {}).outcome,
        Verdict::Outcome::TryAgain);
}

TEST(LoyaltyVerdictTextTest, SaysWhy)
{
    EXPECT_EQ(till::judgeLoyaltyAnswer(0, answerWith("80241"), {}).text,
        u"the service answered with code 80241"_s);
    EXPECT_EQ(till::judgeLoyaltyAnswer(0, "-", {}).text,
        u"the answer is not the service's: no ReturnCode in its XML"_s);
}

} // namespace
