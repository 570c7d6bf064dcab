#include "emulator/recording/recordedexchange.h"

#include "emulator/data/jsonvalue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

RecordedExchange exchange()
{
    RecordedExchange exchange;
    exchange.number = 7;
    exchange.time = QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9, 80), Qt::UTC);
    exchange.operation = u"soft"_s;
    exchange.card = u"2900000000017"_s;
    exchange.status = 200;
    exchange.timeTaken = std::chrono::milliseconds(41);
    exchange.contentType = "text/xml";
    exchange.requestHeaders = {{"Host", "till \xff"}};
    exchange.request = "<request/>";
    exchange.answer = "<answer/>";
    return exchange;
}

TEST(RecordedExchangeTest, WritesItsMembers)
{
    EXPECT_EQ(toJson(exchange()),
        "{\n"
        "  \"number\": 7,\n"
        "  \"time\": \"2024-03-05T17:04:09.080Z\",\n"
        "  \"operation\": \"soft\",\n"
        "  \"card\": \"2900000000017\",\n"
        "  \"status\": 200,\n"
        "  \"failure\": null,\n"
        "  \"milliseconds\": 41,\n"
        "  \"contentType\": \"text/xml\",\n"
        "  \"requestHeaders\": {\n"
        "    \"Host\": \"till \xef\xbf\xbd\"\n"
        "  },\n"
        "  \"cardsMasked\": false\n"
        "}\n");
}

TEST(RecordedExchangeTest, WritesWhatIsNotThereAsNull)
{
    RecordedExchange failed = exchange();
    failed.operation.clear();
    failed.card.clear();
    failed.status.reset();
    failed.failure = u"refused"_s;
    const std::string json = toJson(failed).toStdString();
    for (const char *line :
        {"\"operation\": null", "\"card\": null", "\"status\": null", "\"failure\": \"refused\""})
        EXPECT_THAT(json, HasSubstr(line));
}

TEST(RecordedExchangeTest, NamesItsFiles)
{
    RecordedExchange named = exchange();
    EXPECT_EQ(named.jsonFile(), u"000007-soft.json");
    EXPECT_EQ(named.requestFile(), u"000007-soft-request.xml");
    EXPECT_EQ(named.answerFile(), u"000007-soft-answer.xml");
    named.operation.clear();
    named.number = 1234567;
    EXPECT_EQ(named.jsonFile(), u"1234567-unreadable.json");
}

TEST(RecordedExchangeTest, ReadsWhatItWrote)
{
    RecordedExchange written = exchange();
    written.hasMaskedCards = true;
    const RecordedExchange read = exchangeFromJson(toJson(written));
    EXPECT_EQ(read.status, 200);
    EXPECT_EQ(read.timeTaken.count(), 41);
    EXPECT_EQ(read.contentType, "text/xml");
    EXPECT_TRUE(read.hasMaskedCards);
    written.status.reset();
    EXPECT_FALSE(exchangeFromJson(toJson(written)).status);
}

TEST(RecordedExchangeTest, LeavesNoLineBreakInAContentType)
{
    EXPECT_EQ(exchangeFromJson(R"({"status": 200, "milliseconds": 0, "contentType": "a\nb",
                                   "cardsMasked": false, "more": 1})")
                  .contentType,
        "a b");
}

struct WrongJson
{
    const char *from;
    const char *to;
    const char *complaint;
};

class WrongJsonTest : public testing::TestWithParam<WrongJson>
{ };

TEST_P(WrongJsonTest, IsExplained)
{
    const QByteArray json = toJson(exchange()).replace(GetParam().from, GetParam().to);
    try {
        exchangeFromJson(json);
        FAIL() << json.constData();
    } catch (const DataError &error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().complaint));
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, WrongJsonTest,
    testing::Values(WrongJson{"\"status\": 200,", "", "/status: expected, but it is missing"},
        WrongJson{"200", "\"ok\"", "/status: expected a whole number"},
        WrongJson{"200", "199", "/status: expected null or an HTTP status from 200 up"},
        WrongJson{"200", "1000", "/status: expected null or an HTTP status from 200 up"},
        WrongJson{"41", "-1", "/milliseconds: expected a whole number of at least 0"},
        WrongJson{"\"text/xml\"", "\"a\\rb\"", "/contentType: expected a text without"},
        WrongJson{"false", "null", "/cardsMasked: expected"},
        WrongJson{"\"number\": 7", "\"number\" 7", "line 2, column 12: syntax error"}));

} // namespace
} // namespace emulator
