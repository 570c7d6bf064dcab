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
        Row{"FirstCodeCounts", 0, "<E><ReturnCode>1</ReturnCode><ReturnCode>0</ReturnCode></E>",
            again},
        Row{"PrefixedCode", 0, "<p:E xmlns:p='u'><p:ReturnCode>0</p:ReturnCode></p:E>", again},
        Row{"CutAnswer", 0, "<E><ReturnCode>0</ReturnCode>", again},
        Row{"NotXml", 0, "<html><br></html>", again}, Row{"Empty", 0, "", again},
        Row{"HttpError", 500, answerWith("0"), again},
        Row{"TimedOut", RestClient::TimedOut, answerWith("0"), again}),
    [](const auto &row) { return row.param.name; });

TEST(LoyaltyVerdictTextTest, SaysWhy)
{
    EXPECT_EQ(till::judgeLoyaltyAnswer(0, answerWith("80241"), {}).text,
        u"the service answered with code 80241"_s);
    EXPECT_EQ(
        till::judgeLoyaltyAnswer(0, "-", {}).text, u"the answer is no XML with a ReturnCode"_s);
}

} // namespace
