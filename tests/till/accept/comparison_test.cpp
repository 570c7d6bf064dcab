// Comparisons of what was said with what is to be said.

#include "till/accept/comparison.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

const QByteArray answerText
    = "<Envelope><Body><ProcessRequestResponse><ProcessRequestResult><ChequeResponse>"
      "<Item><PositionNumber>1</PositionNumber><Summ>5.00</Summ></Item>"
      "<Item><PositionNumber>2</PositionNumber><Summ>6.00</Summ></Item></ChequeResponse>"
      "</ProcessRequestResult></ProcessRequestResponse></Body></Envelope>";
const QByteArray requestText
    = "<ChequeRequest><Item><PositionNumber>2</PositionNumber><Price>6.00</Price></Item>"
      "<Item><PositionNumber>1</PositionNumber><Price>5.00</Price></Item></ChequeRequest>";

Dialogue saidSoFar()
{
    Exchange exchange;
    exchange.step = u"sale"_s;
    QDomDocument document;
    document.setContent(requestText);
    exchange.payload = document.documentElement();
    exchange.answer.body = answerText;
    readBody(exchange.answer);
    Dialogue dialogue({}, {});
    dialogue.add(exchange);
    return dialogue;
}

struct Row
{
    const char *that;
    Operator relation;
    const char *other;
    bool holds;
    double within = 0;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.that << " and " << row.other;
}

class ComparisonTest : public testing::TestWithParam<Row>
{ };

TEST_P(ComparisonTest, Holds)
{
    Dialogue dialogue = saidSoFar();
    const Comparison comparison{QString::fromUtf8(GetParam().that), GetParam().relation,
        QString::fromUtf8(GetParam().other), GetParam().within, {}};
    EXPECT_EQ(!shortfallOf(comparison, dialogue).has_value(), GetParam().holds);
}

INSTANTIATE_TEST_SUITE_P(Equality, ComparisonTest,
    testing::Values(Row{"'a'", Operator::Is, "'a'", true}, Row{"'a'", Operator::Is, "'b'", false},
        Row{"1.00", Operator::Is, "1", true}, Row{"1.004", Operator::Is, "1.00", true},
        Row{"1.00", Operator::Is, "1.01", false}, Row{"1.00", Operator::Is, "1.01", true, 0.01},
        Row{"1.00", Operator::Is, "1.02", false, 0.01}, Row{"2 - 1", Operator::Is, "1", true},
        // Longer than a number can tell apart.
        Row{"'00012345678901234567'", Operator::Is, "'00012345678901234568'", false},
        Row{"'00012345678901234567'", Operator::IsNot, "'00012345678901234568'", true},
        Row{"'1'", Operator::Is, "'01'", false}, Row{"'a'", Operator::IsNot, "'a'", false},
        Row{"1.00", Operator::IsNot, "1", false}));

INSTANTIATE_TEST_SUITE_P(Order, ComparisonTest,
    testing::Values(Row{"1", Operator::AtMost, "1.00", true},
        Row{"0.99", Operator::AtMost, "1", true}, Row{"1.01", Operator::AtMost, "1", false},
        Row{"1", Operator::AtLeast, "1", true}, Row{"0.99", Operator::AtLeast, "1", false},
        Row{"-5", Operator::AtMost, "0", true}, Row{"10", Operator::AtLeast, "9", true},
        Row{"'2024-03-05'", Operator::AtMost, "'2024-03-05'", true},
        Row{"'2024-03-05'", Operator::AtMost, "'2024-02-29'", false},
        Row{"'2024-03-05'", Operator::AtLeast, "'2024-02-29'", true}));

INSTANTIATE_TEST_SUITE_P(Others, ComparisonTest,
    testing::Values(Row{"'abc'", Operator::Contains, "'b'", true},
        Row{"'abc'", Operator::Contains, "'d'", false},
        Row{"sale.Nothing", Operator::Is, "''", false},
        Row{"sale.Nothing", Operator::IsNot, "''", false},
        Row{"sale.Nothing", Operator::AtMost, "0", false},
        Row{"''", Operator::Contains, "sale.Nothing", false}));

TEST(ComparisonOfEachTest, TakesThePositionOfTheSameNumber)
{
    Dialogue dialogue = saidSoFar();
    Comparison comparison{u"item.Summ"_s, Operator::Is, u"asked.Price"_s, 0, u"sale.Item"_s};
    EXPECT_FALSE(shortfallOf(comparison, dialogue));
    comparison.other = u"'5.00'"_s;
    const auto shortfall = shortfallOf(comparison, dialogue);
    ASSERT_TRUE(shortfall);
    EXPECT_EQ(shortfall->got, u"6.00"_s);
    comparison.each = u"sale.Nothing"_s;
    EXPECT_FALSE(shortfallOf(comparison, dialogue));
}

TEST(ComparisonShortfallTest, SaysWhatWasExpectedAndGot)
{
    Dialogue dialogue = saidSoFar();
    const auto shortfall = shortfallOf(
        {u"sale.Item.Summ"_s, Operator::Is, u"2 * sale.Item.Summ"_s, 0, {}}, dialogue);
    ASSERT_TRUE(shortfall);
    EXPECT_EQ(shortfall->expected, u"sale.Item.Summ = 2 * sale.Item.Summ = 10.00"_s);
    EXPECT_EQ(shortfall->got, u"5.00"_s);
    EXPECT_EQ(shortfallOf({u"sale.No"_s, Operator::AtMost, u"0"_s, 0, {}}, dialogue)->got, u"–"_s);
    EXPECT_EQ(shortfallOf({u"''"_s, Operator::Is, u"0"_s, 0, {}}, dialogue)->got, u"\"\""_s);
}

TEST(ComparisonShortfallTest, OfLongTextsTheFirstLinesThatDiffer)
{
    Dialogue dialogue = saidSoFar();
    const auto shortfall
        = shortfallOf({u"'a\nb\nc'"_s, Operator::Is, u"'a\nx\nc'"_s, 0, {}}, dialogue);
    ASSERT_TRUE(shortfall);
    EXPECT_EQ(shortfall->got, u"b"_s);
    EXPECT_TRUE(shortfall->expected.endsWith(u"= x")) << qPrintable(shortfall->expected);
}

} // namespace
