#include "emulator/rules/messages.h"

#include "emulator/rules/couponnumber.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace emulator {
namespace {

TEST(Messages, FillTheirPlaceholders)
{
    EXPECT_EQ(fillPlaceholders(u"{holder}: {earned} ({earned})"_s,
                  {{u"holder"_s, u"Орлов"_s}, {u"earned"_s, u"5.00"_s}}),
        u"Орлов: 5.00 (5.00)");
}

TEST(Messages, DoNotSearchValuesForPlaceholders)
{
    EXPECT_EQ(fillPlaceholders(u"{holder}"_s, {{u"holder"_s, u"{card}"_s}, {u"card"_s, u"2900"_s}}),
        u"{card}");
}

TEST(Messages, KeepWhatIsNoPlaceholder)
{
    EXPECT_EQ(fillPlaceholders(u"{ } {unknown} {"_s, {}), u"{ } {unknown} {");
}

TEST(Messages, NameTheirPlaceholdersInOrder)
{
    EXPECT_THAT(
        placeholdersOf(u"a {sum} b {holder}{sum}"_s), ElementsAre(u"sum"_s, u"holder"_s, u"sum"_s));
}

TEST(ChequeMessage, PutsEachCouponBehindTheDelimiter)
{
    EXPECT_EQ(chequeMessage(u"Спасибо"_s, {u"Купон 1"_s, u"Купон 2"_s}),
        u"Спасибо\u2013\u2013Купон 1\u2013\u2013Купон 2");
    EXPECT_EQ(chequeMessage(u"Спасибо"_s, {}), u"Спасибо");
    EXPECT_EQ(chequeMessage(QString(), {u"Купон 1"_s}), u"\u2013\u2013Купон 1");
}

TEST(CouponNumber, HasThirteenDigitsAndTheirCheckDigit)
{
    EXPECT_EQ(couponNumber(u"9901"_s, 1), u"9901000000018");
    EXPECT_EQ(couponNumber(u"460"_s, 123456789), u"4601234567893");
    EXPECT_EQ(couponNumber(u"99"_s, 9), u"9900000000097");
}

} // namespace
} // namespace emulator
