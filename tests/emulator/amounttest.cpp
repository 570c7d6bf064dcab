#include "emulator/amounts/amount.h"

#include "tests/emulator/support/requests.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace emulator {
namespace {

TEST(Amount, ReadsWhatATillWrites)
{
    const std::vector<std::pair<QString, qint64>> rows
        = {{u"12.34"_s, 1234}, {u"0.05"_s, 5}, {u"-0.05"_s, -5}, {u"-0.00"_s, 0}, {u"7"_s, 700},
            {u"7.5"_s, 750}, {u"999999999999.99"_s, 99'999'999'999'999}};
    for (const auto &[text, hundredths] : rows) {
        SCOPED_TRACE(qPrintable(text));
        EXPECT_EQ(Amount::parse(text), Amount::ofHundredths(hundredths));
    }
}

TEST(Amount, RefusesWhatIsNone)
{
    for (const QString &text : {u""_s, u"-"_s, u"."_s, u"1."_s, u".5"_s, u"1.234"_s, u"1,5"_s,
             u"inf"_s, u"nan"_s, u"1e3"_s, u" 1"_s, u"+1"_s, u"--1"_s, u"1000000000000.00"_s}) {
        SCOPED_TRACE(qPrintable(text));
        EXPECT_FALSE(Amount::parse(text));
    }
}

TEST(Amount, IsWrittenWithTwoDecimals)
{
    EXPECT_EQ(Amount::ofHundredths(123450).toString(), u"1234.50");
    EXPECT_EQ(Amount::ofHundredths(5).toString(), u"0.05");
    EXPECT_EQ(Amount::ofHundredths(-5).toString(), u"-0.05");
    EXPECT_EQ(Quantity::ofThousandths(1500).toString(), u"1.500");
}

TEST(Product, RoundsHalfUp)
{
    EXPECT_EQ(product(amount("649.00"), quantity("0.500")), amount("324.50"));
    EXPECT_EQ(product(amount("0.01"), quantity("0.500")), amount("0.01"));
    EXPECT_EQ(product(amount("0.01"), quantity("0.499")), amount("0.00"));
}

TEST(Product, IsNothingAboveTheGreatestAmount)
{
    EXPECT_EQ(product(amount("1000.00"), quantity("999999999.999")), amount("999999999999.00"));
    EXPECT_FALSE(product(amount("999999999999.99"), quantity("999999999.999")));
}

TEST(Percent, TakesItsShareRoundedHalfUp)
{
    EXPECT_EQ(Percent::ofHundredths(500).of(amount("91.80")), amount("4.59"));
    EXPECT_EQ(Percent::ofHundredths(500).of(amount("0.10")), amount("0.01"));
    EXPECT_EQ(Percent::ofHundredths(500).of(amount("0.09")), amount("0.00"));
}

TEST(Percent, OfNothingIsZero)
{
    EXPECT_EQ(Percent::share(amount("1.00"), amount("3.00")).toString(), u"33.33");
    EXPECT_EQ(Percent::share(amount("0.00"), amount("0.00")).toString(), u"0.00");
}

TEST(WholeUnits, AreRoundedDown)
{
    EXPECT_EQ(Amount::ofUnits(3), amount("3.00"));
    EXPECT_EQ(amount("3.99").wholeUnits(), 3);
    EXPECT_EQ(quantity("2.999").wholeUnits(), 2);
    EXPECT_EQ(quantity("0.999").wholeUnits(), 0);
}

TEST(Amount, IsMultiplied)
{
    EXPECT_EQ(amount("59.90") * 3, amount("179.70"));
}

TEST(Amount, IsADoubleForJson)
{
    EXPECT_EQ(amount("59.90").toDouble(), 59.9);
}

TEST(ProportionInUnits, IsRoundedDownToWholeOnes)
{
    const std::vector<std::tuple<const char *, const char *, const char *>> rows
        = {{"1.000", "3.000", "3.00"}, {"2.000", "3.000", "6.00"}, {"3.000", "3.000", "10.00"},
            {"2.999", "3.000", "9.00"}, {"0.000", "3.000", "0.00"}};
    for (const auto &[part, whole, expected] : rows) {
        SCOPED_TRACE(part);
        EXPECT_EQ(
            proportionInUnits(amount("10.00"), quantity(part), quantity(whole)), amount(expected));
    }
}

TEST(Apportion, GivesTheRestToTheGreatestRemainders)
{
    EXPECT_THAT(apportion(amount("1.00"), {amount("1.00"), amount("1.00"), amount("1.00")}),
        ElementsAre(amount("0.34"), amount("0.33"), amount("0.33")));
    EXPECT_THAT(apportion(amount("0.10"), {amount("0.34"), amount("0.66")}),
        ElementsAre(amount("0.03"), amount("0.07")));
}

TEST(Apportion, NeverExceedsAWeight)
{
    const std::vector<Amount> weights = {amount("0.01"), amount("0.00"), amount("9.98")};
    EXPECT_THAT(apportion(amount("9.99"), weights), testing::ElementsAreArray(weights));
}

TEST(Apportion, WithoutWeightsSharesNothingOut)
{
    EXPECT_THAT(apportion(amount("5.00"), {Amount(), Amount()}), ElementsAre(Amount(), Amount()));
    EXPECT_THAT(apportion(amount("5.00"), {}), testing::IsEmpty());
}

} // namespace
} // namespace emulator
