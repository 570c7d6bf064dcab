#include "emulator/recording/cardmask.h"

#include <gtest/gtest.h>

namespace emulator {
namespace {

struct MaskCase
{
    const char *number;
    const char *masked;
};

class CardMaskTest : public testing::TestWithParam<MaskCase>
{ };

TEST_P(CardMaskTest, LeavesTheEnds)
{
    EXPECT_EQ(maskedNumber(GetParam().number), GetParam().masked);
}

TEST_P(CardMaskTest, ChangesNothingASecondTime)
{
    EXPECT_EQ(maskedNumber(GetParam().masked), GetParam().masked);
}

INSTANTIATE_TEST_SUITE_P(Numbers, CardMaskTest,
    testing::Values(MaskCase{"2900000000017", "2900*****0017"}, MaskCase{"123456789", "1234*6789"},
        MaskCase{"12345678", "12345678"}, MaskCase{"1", "1"}, MaskCase{"", ""},
        MaskCase{"KRV-2900 0000 0001 7", "KRV-2900 **** *001 7"}, MaskCase{"gold", "gold"}));

TEST(CardNumbersTest, AreFoundInEveryWayOfWritingTheElement)
{
    EXPECT_EQ(
        cardNumbersIn("<CardNumber>111111111</CardNumber><p:CardNumber a='1'>\n 22222222222 </"
                      "p:CardNumber><CardNumber><![CDATA[3333333333]]></CardNumber>"),
        (QList<QByteArray>{"22222222222", "3333333333", "111111111"}));
}

TEST(CardNumbersTest, AreNamedOnceAndLongOnesFirst)
{
    EXPECT_EQ(cardNumbersIn("<CardNumber>1234567890</CardNumber><CardNumber>12345678901</"
                            "CardNumber><CardNumber>1234567890</CardNumber>"),
        (QList<QByteArray>{"12345678901", "1234567890"}));
}

TEST(CardNumbersTest, AreNotFoundElsewhere)
{
    EXPECT_EQ(cardNumbersIn("<CardNumbers>111111111</CardNumbers><Number>222222222</Number>"
                            "<CardNumber></CardNumber><CardNumber/>"),
        QList<QByteArray>());
}

TEST(CardNumbersTest, AreFoundInWhatIsNotXml)
{
    EXPECT_EQ(
        cardNumbersIn("\xff junk <CardNumber>2900000000017"), QList<QByteArray>{"2900000000017"});
}

TEST(CardTextsTest, AreMaskedWhereverTheNumberStandsAndBack)
{
    const QList<QByteArray> numbers{"2900000000017"};
    const QByteArray text
        = "\xff <CardNumber>2900000000017</CardNumber> x2900000000017x 290000000001";
    const QByteArray masked
        = "\xff <CardNumber>2900*****0017</CardNumber> x2900*****0017x 290000000001";
    EXPECT_EQ(withMasked(text, numbers), masked);
    EXPECT_EQ(withUnmasked(masked, numbers), text);
}

TEST(CardTextsTest, OfTwoNumbersTheLongOneIsWhole)
{
    const QByteArray text
        = "<CardNumber>1234567890</CardNumber><CardNumber>12345678901</CardNumber>";
    EXPECT_EQ(withMasked(text, cardNumbersIn(text)),
        "<CardNumber>1234**7890</CardNumber><CardNumber>1234***8901</CardNumber>");
}

} // namespace
} // namespace emulator
