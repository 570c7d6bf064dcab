#include "emulator/data/servicedatareader.h"
#include "tests/emulator/support/requests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

TEST(SampleData, HoldsTheCardsThatTheTutorialsName)
{
    const ServiceData data = sampleServiceData();
    EXPECT_EQ(data.cards.at(0).number, u"2900000000017");
    EXPECT_EQ(data.cards.at(0).type, u"Золотая");
    EXPECT_EQ(data.cards.at(0).openingBalance, amount("500.00"));
    EXPECT_EQ(data.cards.at(1).number, u"2900000000024");
    EXPECT_EQ(data.cards.at(2).status, 3);
    EXPECT_EQ(data.coupons.at(0).number, u"9900000000018");
    EXPECT_TRUE(data.coupons.at(0).applicable);
    EXPECT_FALSE(data.coupons.at(1).applicable);
}

TEST(SampleData, HoldsACardWithStickersAndWhatTheyBuy)
{
    const ServiceData data = sampleServiceData();
    EXPECT_EQ(data.cards.at(4).number, u"2900000000062");
    EXPECT_EQ(data.cards.at(4).openingStickers, 10);
    EXPECT_EQ(data.cards.at(0).openingStickers, 0);
    ASSERT_EQ(data.stickerOffers.size(), 2u);
    EXPECT_EQ(data.stickerOffers[0].article, u"1007");
    EXPECT_EQ(data.stickerOffers[0].stickers, 3);
    EXPECT_EQ(data.stickerOffers[0].discount, amount("60.00"));
    EXPECT_FALSE(data.stickerOffers[0].limit);
    EXPECT_EQ(data.stickerOffers[1].limit, 1);
}

TEST(ServiceData, TakesDefaultsForWhatIsLeftOut)
{
    const ServiceData data = readServiceData(R"({"cards": [{"number": "1"}]})");
    EXPECT_THAT(data.servedStatuses, testing::ElementsAre(2));
    EXPECT_EQ(data.cards.at(0).status, 2);
    EXPECT_EQ(data.cards.at(0).openingBalance, Amount());
    EXPECT_EQ(data.cards.at(0).openingStickers, 0);
    EXPECT_TRUE(data.stickerOffers.empty());
    EXPECT_FALSE(data.cards.at(0).forced);
    EXPECT_FALSE(data.spending.confirmAbove);
    EXPECT_TRUE(data.technicalCards.prefix.isEmpty());
}

TEST(ServiceData, ReadsEveryRule)
{
    const ServiceData data = readServiceData(R"({
        "servedStatuses": [1, 4], // comments are welcome
        "cards": [{"number": "1", "forced": {"code": 7, "message": "m", "operations": ["soft"]}}],
        "discounts": {"articles": [{"article": "A", "amount": 1.5}],
                      "groups": [{"articles": ["B", "C"], "percent": 5}],
                      "cheque": [{"from": 100, "percent": 2.25}]},
        "earning": {"cheque": [{"from": 5, "points": 0.1}]},
        "spending": {"confirmAbove": 0, "code": "Ab1", "codeMinutes": 5, "codeAttempts": 3},
        "instantCoupons": [{"prefix": "99", "text": "{coupon}"}],
        "messages": {"fiscal": {"cheque": "{sum}"}}})");
    EXPECT_THAT(data.servedStatuses, testing::ElementsAre(1, 4));
    EXPECT_EQ(data.cards.at(0).forced->operations, QStringList{u"soft"_s});
    EXPECT_EQ(std::get<Amount>(data.articleDiscounts.at(0).reduction), amount("1.50"));
    ASSERT_EQ(data.articleDiscounts.size(), 3u);
    EXPECT_EQ(data.articleDiscounts[1].article, u"B");
    EXPECT_EQ(data.articleDiscounts[2].article, u"C");
    EXPECT_EQ(std::get<Percent>(data.articleDiscounts[2].reduction).hundredths(), 500);
    EXPECT_EQ(data.spending.codeMinutes, 5);
    EXPECT_EQ(data.spending.codeAttempts, 3);
    EXPECT_EQ(std::get<Percent>(data.chequeDiscounts.at(0).reduction).hundredths(), 225);
    EXPECT_EQ(data.earning.cheque.at(0).points, amount("0.10"));
    EXPECT_EQ(data.spending.confirmAbove, Amount());
    EXPECT_EQ(data.fiscalMessages.cheque, u"{sum}");
}

struct Row
{
    const char *json;
    const char *complaint;
};

class WrongServiceData : public testing::TestWithParam<Row>
{ };

TEST_P(WrongServiceData, IsExplained)
{
    try {
        readServiceData(GetParam().json);
        FAIL() << "the data was accepted";
    } catch (const DataError &error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().complaint));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, WrongServiceData,
    testing::Values(Row{"", "line 1, column 1: syntax error"},
        Row{"{\n \"cards\": [}\n", "line 2, column 12: syntax error"},
        Row{"{\n// ж\n \"ж\": x", "line 3, column 7: syntax error"},
        Row{"[]", "/: expected an object, got []"},
        Row{R"({"crads": []})", "/crads: unknown member, expected one of servedStatuses, cards"},
        Row{R"({"cards": {}})", "/cards: expected an array"},
        Row{R"({"cards": [{}]})", "/cards/0/number: expected, but it is missing"},
        Row{R"({"cards": [{"number": ""}]})", "/cards/0/number: expected a text that is not empty"},
        Row{R"({"cards": [{"number": 5}]})", "/cards/0/number: expected a text, got 5"},
        Row{R"({"cards": [{"number": "\u0001"}]})", "without control characters"},
        Row{R"({"cards": [{"number": "1"}, {"number": "1"}]})",
            "/cards/1/number: expected a number that no card above has"},
        Row{R"({"cards": [{"number": "1", "status": 2.5}]})",
            "/cards/0/status: expected a whole number, got 2.5"},
        Row{R"({"cards": [{"number": "1", "status": 3000000000}]})", "expected a whole number"},
        Row{R"({"cards": [{"number": "1", "balance": -1}]})",
            "/cards/0/balance: expected an amount of zero or more"},
        Row{R"({"cards": [{"number": "1", "balance": 0.001}]})", "at most two decimals"},
        Row{R"({"cards": [{"number": "1", "stickers": -1}]})",
            "/cards/0/stickers: expected a whole number of at least 0, got -1"},
        Row{R"({"cards": [{"number": "1", "stickers": 1.5}]})",
            "/cards/0/stickers: expected a whole number, got 1.5"},
        Row{R"({"stickerOffers": {}})", "/stickerOffers: expected an array"},
        Row{R"({"stickerOffers": [{"stickers": 1, "discount": 1}]})",
            "/stickerOffers/0/article: expected, but it is missing"},
        Row{R"({"stickerOffers": [{"article": "", "stickers": 1, "discount": 1}]})",
            "/stickerOffers/0/article: expected a text that is not empty"},
        Row{R"({"stickerOffers": [{"article": "A", "discount": 1}]})",
            "/stickerOffers/0/stickers: expected, but it is missing"},
        Row{R"({"stickerOffers": [{"article": "A", "stickers": 0, "discount": 1}]})",
            "/stickerOffers/0/stickers: expected a whole number of at least 1, got 0"},
        Row{R"({"stickerOffers": [{"article": "A", "stickers": 1}]})",
            "/stickerOffers/0/discount: expected, but it is missing"},
        Row{R"({"stickerOffers": [{"article": "A", "stickers": 1, "discount": 0}]})",
            "/stickerOffers/0/discount: expected an amount above zero, got 0"},
        Row{R"({"stickerOffers": [{"article": "A", "stickers": 1, "discount": 1, "limit": 0}]})",
            "/stickerOffers/0/limit: expected a whole number of at least 1, got 0"},
        Row{R"({"stickerOffers": [{"article": "A", "stickers": 1, "discount": 1, "max": 1}]})",
            "/stickerOffers/0/max: unknown member, expected one of article, stickers"},
        Row{R"({"stickerOffers": [{"article": "A", "stickers": 1, "discount": 1},
                                  {"article": "A", "stickers": 2, "discount": 1}]})",
            "/stickerOffers/1/article: expected an article that no offer above has, got \"A\""},
        Row{R"({"cards": [{"number": "1", "chequesByEmail": 1}]})", "expected true or false"},
        Row{R"({"cards": [{"number": "1", "attributes": {"a/b": 1}}]})",
            "/cards/0/attributes/a~1b: expected a text"},
        Row{R"({"cards": [{"number": "1", "forced": {"code": 1, "operations": ["sale"]}}]})",
            "/cards/0/forced/operations/0: expected one of balance, soft"},
        Row{R"({"discounts": {"articles": [{"article": "A"}]}})",
            "expected either \"percent\" or \"amount\""},
        Row{R"({"discounts": {"articles": [{"article": "A", "percent": 1, "amount": 1}]}})",
            "expected either \"percent\" or \"amount\""},
        Row{R"({"discounts": {"cheque": [{"percent": 101}]}})",
            "/discounts/cheque/0/percent: expected a percentage from 0 to 100"},
        Row{R"({"spending": {"code": "ж"}})", "/spending/code: expected Latin letters"},
        Row{R"({"technicalCards": {"prefix": "37x"}})", "/technicalCards/prefix: expected digits"},
        Row{R"({"messages": {"soft": {"cashier": "{name}"}}})",
            "/messages/soft/cashier: expected only the placeholders {holder}"},
        Row{R"({"instantCoupons": [{"prefix": "99", "text": "no number"}]})",
            "/instantCoupons/0/text: expected a text with {coupon}"},
        Row{R"({"instantCoupons": [{"prefix": "1234567", "text": "{coupon}"}]})",
            "/instantCoupons/0/prefix: expected at most six digits"}));

TEST(ServiceDataFile, IsNamedInTheComplaint)
{
    try {
        readServiceDataFile(u"/nowhere/service.json"_s);
        FAIL() << "a missing file was read";
    } catch (const DataError &error) {
        EXPECT_THAT(error.what(), HasSubstr("/nowhere/service.json: cannot be read"));
    }
}

} // namespace
} // namespace emulator
