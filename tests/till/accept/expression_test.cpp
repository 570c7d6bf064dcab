// Expressions over what till and service have said.

#include "till/accept/expression.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

const QByteArray answerText
    = R"(<s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/"><s:Body>
  <ProcessRequestResponse xmlns="urn:x"><ProcessRequestResult><ChequeResponse>
    <ReturnCode>0</ReturnCode><Message/><TransactionID>00012345678901234567</TransactionID>
    <Processed>2024-03-05T17:04:10</Processed>
    <Summ>100.00</Summ><WriteoffBonus>7.50</WriteoffBonus>
    <Item><PositionNumber>10</PositionNumber><Summ>60.00</Summ></Item>
    <Item><PositionNumber>9</PositionNumber><Summ>40.00</Summ></Item>
  </ChequeResponse></ProcessRequestResult></ProcessRequestResponse></s:Body></s:Envelope>)";

const QByteArray refusalText
    = R"(<Envelope><Body><ProcessRequestResponse><ProcessRequestResult><ChequeResponse>
  <ReturnCode>81400</ReturnCode><WriteoffBonus>0.00</WriteoffBonus>
  </ChequeResponse></ProcessRequestResult></ProcessRequestResponse></Body></Envelope>)";

const QByteArray requestText = R"(<ChequeRequest><PaidByBonus>50.00</PaidByBonus>
  <Item><Price>0.35</Price><Quantity>0.500</Quantity></Item>
  <Item><Price>10.00</Price><Quantity>2.000</Quantity></Item></ChequeRequest>)";

Exchange exchangeOf(const QString &step, const QByteArray &answer)
{
    Exchange exchange;
    exchange.step = step;
    exchange.request = requestText;
    QDomDocument document;
    document.setContent(requestText);
    exchange.payload = document.documentElement();
    exchange.answer.body = answer;
    readBody(exchange.answer);
    exchange.holderCode = u"4829"_s;
    return exchange;
}

Dialogue saidSoFar()
{
    Dialogue dialogue({{u"card"_s, u"29"_s}, {u"coupon"_s, {}}},
        [next = std::make_shared<int>(0)] { return u"N%1"_s.arg(++*next); });
    dialogue.add(exchangeOf(u"sale"_s, answerText));
    dialogue.add(exchangeOf(u"refused"_s, refusalText));
    Exchange failed;
    failed.step = u"failed"_s;
    failed.answer.error = 503;
    dialogue.add(failed);
    return dialogue;
}

struct Row
{
    const char *expression;
    const char *written; ///< null: nothing
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.expression;
}

class ExpressionTest : public testing::TestWithParam<Row>
{ };

TEST_P(ExpressionTest, ComesTo)
{
    Dialogue dialogue = saidSoFar();
    const Value value = evaluate(QString::fromUtf8(GetParam().expression), dialogue);
    ASSERT_EQ(value.isThere(), GetParam().written != nullptr);
    if (GetParam().written) {
        EXPECT_EQ(value.written().toStdString(), GetParam().written);
    }
}

INSTANTIATE_TEST_SUITE_P(Values, ExpressionTest,
    testing::Values(Row{"card", "29"}, Row{"coupon", ""}, Row{"'a text'", "a text"},
        Row{"12.50", "12.50"}, Row{"sale.TransactionID", "00012345678901234567"},
        Row{"sale.Message", ""}, Row{"sale.Nothing", nullptr}, Row{"later.Summ", nullptr},
        Row{"sale.Item.Summ", "60.00"}, Row{"sale.request.PaidByBonus", "50.00"},
        Row{"sale.request.Nothing", nullptr}, Row{"sale.status", "200"},
        Row{"failed.status", "503"}, Row{"failed.kind", "-"}, Row{"sale.kind", "ChequeResponse"},
        Row{"sale.holder", "4829"}));

INSTANTIATE_TEST_SUITE_P(Arithmetic, ExpressionTest,
    testing::Values(Row{"1 + 2 * 3", "7.00"}, Row{"(1 + 2) * 3", "9.00"}, Row{"10 - 4 - 3", "3.00"},
        Row{"7 / 2", "3.50"}, Row{"7 / 0", "0.00"}, Row{"-2 + 5", "3.00"},
        Row{"sale.Summ - sale.WriteoffBonus", "92.50"}, Row{"sale.Summ + sale.Nothing", nullptr},
        Row{"1 / 3", "0.33"}, Row{"sale.Processed + 1", nullptr}));

INSTANTIATE_TEST_SUITE_P(Functions, ExpressionTest,
    testing::Values(Row{"sum(sale.Item.Summ)", "100.00"}, Row{"sum(sale.Nothing)", "0.00"},
        Row{"count(sale.Item)", "2"}, Row{"count(later.Item)", "0"},
        Row{"listed(sale.Item.PositionNumber)", "10, 9"},
        Row{"sorted(sale.Item.PositionNumber)", "9, 10"}, Row{"goods(sale)", "20.18"},
        Row{"wished(sale)", "7.50"}, Row{"wished(refused)", "50.00"},
        Row{"min(3, 2, sale.WriteoffBonus)", "2.00"}, Row{"either(coupon, card)", "29"},
        Row{"either(sale.Nothing, coupon)", ""}, Row{"either(coupon, sale.Nothing)", nullptr},
        Row{"day(sale.Processed)", "2024-03-05"}, Row{"day(sale.Nothing)", nullptr},
        Row{"number('a')", "N1"}, Row{"wrong('48-29x')", "59x30x"}, Row{"wrong('9')", "0"}));

class BrokenExpressionTest : public testing::TestWithParam<const char *>
{ };

TEST_P(BrokenExpressionTest, IsAnError)
{
    Dialogue dialogue = saidSoFar();
    EXPECT_THROW(
        static_cast<void>(evaluate(QString::fromUtf8(GetParam()), dialogue)), ExpressionError);
}

INSTANTIATE_TEST_SUITE_P(Every, BrokenExpressionTest,
    testing::Values("", "1 +", "(1", "1)", "'open", "sum(sale.Item", "nothing(1)", "day(1, 2)",
        "1 2", "min(1", "* 2", "sale.Summ sale.Summ"));

TEST(ExpressionNumbersTest, ANameHasOneNumberInAFlow)
{
    Dialogue dialogue = saidSoFar();
    const QString first = evaluate(u"number('sale')"_s, dialogue).written();
    EXPECT_NE(evaluate(u"number('return')"_s, dialogue).written(), first);
    EXPECT_EQ(evaluate(u"number('sale')"_s, dialogue).written(), first);
}

TEST(ExpressionAnswerTest, TheWholeAnswerWithoutWhatMeansNothing)
{
    Dialogue dialogue = saidSoFar();
    EXPECT_EQ(evaluate(u"answer(refused)"_s, dialogue).written(),
        u"ReturnCode = 81400\nWriteoffBonus = 0.00"_s);
    EXPECT_TRUE(evaluate(u"answer(sale)"_s, dialogue).written().contains(u"\nItem.Summ = 40.00"));
}

TEST(ExpressionSurroundingsTest, TheElementInHand)
{
    Dialogue dialogue = saidSoFar();
    const Surroundings surroundings{elementsOf(u"sale.Item"_s, dialogue).last(),
        elementsOf(u"sale.request.Item"_s, dialogue).last()};
    EXPECT_EQ(evaluate(u"item.Summ"_s, dialogue, surroundings).written(), u"40.00"_s);
    EXPECT_EQ(evaluate(u"asked.Price"_s, dialogue, surroundings).written(), u"10.00"_s);
    EXPECT_FALSE(evaluate(u"asked.Price"_s, dialogue).isThere());
}

} // namespace
