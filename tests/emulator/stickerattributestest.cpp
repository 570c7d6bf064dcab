#include "emulator/desk/stickerattributes.h"

#include "tests/emulator/support/calculated.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

constexpr const char *offerKey = "StickersInterchange";
constexpr const char *exchangeKey = "StickersExchanged";

RequestPosition positionWith(const char *key, const QByteArray &value)
{
    RequestPosition position;
    position.attributes.insert(QString::fromLatin1(key), QString::fromUtf8(value));
    return position;
}

struct Row
{
    const char *name;
    const char *value;
    std::optional<qint64> units;
};

std::string nameOf(const testing::TestParamInfo<Row> &info)
{
    return info.param.name;
}

class UnitsOfAnOffer : public testing::TestWithParam<Row>
{ };

TEST_P(UnitsOfAnOffer, AreRead)
{
    const RequestPosition position = positionWith(offerKey, GetParam().value);
    EXPECT_EQ(unitsOfOffer(position), GetParam().units);
    EXPECT_TRUE(carriesOffer(position));
}

INSTANTIATE_TEST_SUITE_P(Table, UnitsOfAnOffer,
    testing::Values(
        Row{"AsOffered", R"({"activebalance":10,"promocoupons":3,"amount":2,"discount":60.0})", 2},
        Row{"Alone", R"({"amount": 1})", 1}, Row{"WithAFraction", R"({"amount": 2.7})", 2},
        Row{"BelowOne", R"({"amount": 0.9})", {}}, Row{"Zero", R"({"amount": 0})", {}},
        Row{"Negative", R"({"amount": -2})", {}}, Row{"AText", R"({"amount": "2"})", {}},
        Row{"Null", R"({"amount": null})", {}}, Row{"Missing", R"({"discount": 60.0})", {}},
        Row{"Huge", R"({"amount": 1e300})", 1'000'000'000},
        Row{"BeyondSixtyFourBits", R"({"amount": 18446744073709551615})", 1'000'000'000},
        Row{"BeyondEveryDouble", R"({"amount": 1e999})", {}}, Row{"AnArray", R"([2])", {}},
        Row{"ANumber", "2", {}}, Row{"HalfAnObject", R"({"amount": 2)", {}},
        Row{"NotJson", "two, please", {}}, Row{"Empty", "", {}}),
    nameOf);

TEST(StickerAttributes, OfNoOfferHoldNoUnits)
{
    const RequestPosition position = positionWith("Color", R"({"amount": 2})");
    EXPECT_FALSE(carriesOffer(position));
    EXPECT_FALSE(unitsOfOffer(position));
    EXPECT_FALSE(unitsOfExchange(position, u"1"_s));
}

TEST(StickerAttributes, LongerThanTheServiceWritesAreNotRead)
{
    const QByteArray longest = QByteArray(R"({"amount": 2})").leftJustified(4096, ' ');
    EXPECT_EQ(unitsOfOffer(positionWith(offerKey, longest)), 2);
    EXPECT_FALSE(unitsOfOffer(positionWith(offerKey, longest + ' ')));
}

TEST(StickerAttributes, NestedAMillionTimesAreJustUnreadable)
{
    const QByteArray nested
        = QByteArray("[").repeated(1'000'000) + QByteArray("]").repeated(1'000'000);
    EXPECT_FALSE(unitsOfOffer(positionWith(offerKey, nested)));
    EXPECT_FALSE(unitsOfOffer(positionWith(offerKey, "{\"amount\":" + nested + "}")));
    EXPECT_FALSE(unitsOfExchange(positionWith(exchangeKey, "{\"card\":" + nested + "}"), u"1"_s));
}

class UnitsOfAnExchange : public testing::TestWithParam<Row>
{ };

TEST_P(UnitsOfAnExchange, AreReadForTheirCard)
{
    EXPECT_EQ(unitsOfExchange(positionWith(exchangeKey, GetParam().value), u"2900000000062"_s),
        GetParam().units);
}

INSTANTIATE_TEST_SUITE_P(Table, UnitsOfAnExchange,
    testing::Values(
        Row{"AsAnswered", R"({"card":"2900000000062","stickers":6,"amount":2,"discount":60.0})", 2},
        Row{"OfAnotherCard", R"({"card":"2900000000017","amount":2})", {}},
        Row{"OfANumberForACard", R"({"card":2900000000062,"amount":2})", {}},
        Row{"OfNoCard", R"({"amount":2})", {}},
        Row{"WithoutUnits", R"({"card":"2900000000062"})", {}}, Row{"NotJson", "yes", {}}),
    nameOf);

CalculatedPosition positionOfTea()
{
    return calculated({{"tea", "189.00", "2.000"}}).front();
}

TEST(StickerAttributes, OfferWhatATillUnderstands)
{
    CalculatedPosition position = positionOfTea();
    position.offered = StickerDeal{2, 3, amount("59.90")};
    const QMap<QString, QString> expected = {{QString::fromLatin1(offerKey),
        uR"({"activebalance":10,"promocoupons":3,"amount":2,"discount":59.9})"_s}};
    EXPECT_EQ(stickerAttributes(position, u"1"_s, 10), expected);
}

TEST(StickerAttributes, TellAnExchangeWithAllItsStickersAndTheDiscountOfAUnit)
{
    CalculatedPosition position = positionOfTea();
    position.exchanged = StickerDeal{2, 3, amount("60.00")};
    const QMap<QString, QString> expected = {{QString::fromLatin1(exchangeKey),
        uR"({"card":"290","stickers":6,"amount":2,"discount":60.0})"_s}};
    EXPECT_EQ(stickerAttributes(position, u"290"_s, 4), expected);
}

TEST(StickerAttributes, OfAPositionWithoutStickersAreNone)
{
    EXPECT_TRUE(stickerAttributes(positionOfTea(), u"1"_s, 10).isEmpty());
}

TEST(StickerAttributes, SurviveTheWayThroughATill)
{
    CalculatedPosition position = positionOfTea();
    position.exchanged = StickerDeal{2, 3, amount("60.00")};
    RequestPosition next;
    next.attributes = stickerAttributes(position, u"\"29\" \\ и"_s, 4);
    EXPECT_EQ(unitsOfExchange(next, u"\"29\" \\ и"_s), 2);
}

} // namespace
} // namespace emulator
