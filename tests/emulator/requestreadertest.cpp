#include "emulator/soap/requestreader.h"

#include "tests/emulator/support/requests.h"
#include "tests/emulator/support/samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

class RequestReaderTest : public testing::Test
{
protected:
    Request whenRead(const QByteArray &xml) { return readRequest(xml, schema); }

    std::string whenRefused(const QByteArray &xml)
    {
        try {
            readRequest(xml, schema);
        } catch (const RequestError &error) {
            return error.what();
        }
        return "the request was accepted";
    }

    /// The sample with one text exchanged, which must be there.
    static QByteArray changed(const char *name, const QByteArray &before, const QByteArray &after)
    {
        QByteArray xml = sample(name);
        EXPECT_TRUE(xml.contains(before)) << before.constData();
        return xml.replace(before, after);
    }

    MessageSchema schema;
};

TEST_F(RequestReaderTest, ReadsABalanceRequest)
{
    const auto request = std::get<BalanceRequest>(whenRead(sample("balance-request.xml")));
    EXPECT_EQ(request.card, u"2900000000017");
    EXPECT_EQ(request.till.pos, u"1");
    EXPECT_EQ(request.till.organization, u"Korvel");
    EXPECT_EQ(request.till.businessUnit, u"1");
}

TEST_F(RequestReaderTest, ReadsASale)
{
    const auto sale = std::get<SaleRequest>(whenRead(sample("sale-fiscal-request.xml")));
    EXPECT_TRUE(sale.fiscal);
    EXPECT_EQ(sale.number, u"17");
    EXPECT_EQ(sale.sum, amount("815.30"));
    EXPECT_EQ(sale.discount, amount("73.24"));
    EXPECT_EQ(sale.sumDiscounted, amount("742.06"));
    EXPECT_EQ(sale.paidByBonus, amount("100.00"));
    EXPECT_EQ(sale.coupons, QStringList{u"9900000000018"_s});
    ASSERT_TRUE(sale.confirmation);
    EXPECT_TRUE(sale.confirmation->confirm);
    EXPECT_FALSE(sale.confirmation->sendCode);
    EXPECT_EQ(sale.confirmation->code, u"4829");
}

TEST_F(RequestReaderTest, TakesAChequeOfAHundredthLessThanAMillionMillion)
{
    const auto sale = std::get<SaleRequest>(
        whenRead(changed("sale-soft-request.xml", "<Price>45.90</Price>\n      <Quantity>2.000",
            "<Price>999999999276.49</Price>\n      <Quantity>1.000")));
    EXPECT_EQ(sale.positions[0].sum, amount("999999999276.49"));
}

TEST_F(RequestReaderTest, TellsTheFirstOfSeveralMistakes)
{
    QByteArray xml = changed("sale-soft-request.xml", "<Confirm>0<", "<Confirm>2<");
    EXPECT_THAT(whenRefused(xml.replace("<Price>45.90<", "<Price>45.9<")), HasSubstr("'Confirm'"));
}

TEST_F(RequestReaderTest, ReadsThePositionsOfASale)
{
    const auto sale = std::get<SaleRequest>(
        whenRead(changed("sale-soft-request.xml", "<Mcp>0.00</Mcp>", "<Mcp>2.50</Mcp>")));
    ASSERT_EQ(sale.positions.size(), 3u);
    EXPECT_EQ(sale.positions[2].number, 3);
    EXPECT_EQ(sale.positions[2].article, u"1003");
    EXPECT_EQ(sale.positions[2].quantity, quantity("0.500"));
    EXPECT_EQ(sale.positions[2].price, amount("649.00"));
    EXPECT_EQ(sale.positions[2].sum, amount("324.50"));
    EXPECT_EQ(sale.positions[2].minimumPrice, amount("2.50"));
}

TEST_F(RequestReaderTest, ReadsTheAttributesOfAPosition)
{
    const auto sale = std::get<SaleRequest>(whenRead(sample("stickers-exchange-request.xml")));
    ASSERT_EQ(sale.positions.size(), 2u);
    EXPECT_EQ(sale.positions[1].attributes.value(u"StickersInterchange"_s),
        u"{\"activebalance\":10,\"promocoupons\":4,\"amount\":1,\"discount\":90.0}");
}

TEST_F(RequestReaderTest, ReadsSeveralAttributesInOneElementAndInSeveral)
{
    const auto sale = std::get<SaleRequest>(
        whenRead(changed("sale-soft-request.xml", "<Value>red</Value>\n      </ExtendedAttribute>",
            "<Value>red</Value><Key>Size</Key><Value>L</Value></ExtendedAttribute>"
            "<ExtendedAttribute><Key>Color</Key><Value>blue</Value></ExtendedAttribute>")));
    const QMap<QString, QString> expected = {{u"Color"_s, u"blue"_s}, {u"Size"_s, u"L"_s}};
    EXPECT_EQ(sale.positions[0].attributes, expected);
    EXPECT_TRUE(sale.positions[1].attributes.isEmpty());
}

TEST_F(RequestReaderTest, ReadsAReturn)
{
    const auto request = std::get<ReturnRequest>(whenRead(sample("return-request.xml")));
    EXPECT_EQ(request.number, u"18");
    EXPECT_EQ(request.sale.number, u"17");
    EXPECT_EQ(request.sale.date, QDate(2024, 3, 5));
    EXPECT_EQ(request.sale.till.pos, u"1");
}

TEST_F(RequestReaderTest, ReadsAReturnWithoutADate)
{
    const auto request = std::get<ReturnRequest>(whenRead(
        changed("return-request.xml", "<DateTime>2024-03-05</DateTime>", "<DateTime></DateTime>")));
    EXPECT_FALSE(request.sale.date.isValid());
}

TEST_F(RequestReaderTest, ReadsARollback)
{
    const auto request = std::get<RollbackRequest>(whenRead(sample("rollback-request.xml")));
    EXPECT_EQ(request.transaction, u"0000000001");
    EXPECT_EQ(request.card, u"2900000000017");
}

TEST_F(RequestReaderTest, TakesAPercentageThatIsNoNumberWhereATillMayWriteOne)
{
    for (const char *rate : {"inf", "-inf", "nan", "-12.50"}) {
        SCOPED_TRACE(rate);
        const QByteArray discount = "<Discount>" + QByteArray(rate) + "</Discount>";
        EXPECT_NO_THROW(
            whenRead(changed("return-request.xml", "<Discount>10.00</Discount>", discount)));
    }
}

TEST_F(RequestReaderTest, RefusesWhatIsNotXml)
{
    EXPECT_THAT(whenRefused(""), HasSubstr("empty"));
    EXPECT_THAT(whenRefused("hello"), HasSubstr("line 1: not XML"));
    EXPECT_THAT(whenRefused("<a>\n<b></a>"), HasSubstr("line 2: not XML"));
    EXPECT_THAT(whenRefused(QByteArray("\0\0", 2)), HasSubstr("not XML"));
    EXPECT_THAT(whenRefused("<a>\xff</a>"), HasSubstr("not XML"));
}

TEST_F(RequestReaderTest, RefusesWhatTheParserMustNotSee)
{
    EXPECT_THAT(whenRefused("<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>"), HasSubstr("DOCTYPE"));
}

TEST_F(RequestReaderTest, RefusesOtherEncodings)
{
    const QByteArray xml = "<?xml version='1.0' encoding='windows-1251'?><a>\xcf</a>";
    EXPECT_THAT(whenRefused(xml), HasSubstr("not XML"));
}

TEST_F(RequestReaderTest, NamesTheLineOfWhatDoesNotFit)
{
    const std::string complaint
        = whenRefused(changed("balance-request.xml", "CardNumber>", "CardNumer>"));
    EXPECT_THAT(complaint, HasSubstr("Element 'CardNumer': This element is not expected."));
    EXPECT_THAT(complaint, HasSubstr("line 12: "));
}

TEST_F(RequestReaderTest, RefusesAnAnswer)
{
    EXPECT_THAT(whenRefused(sample("balance-answer.xml")), HasSubstr("a request is expected"));
}

struct Row
{
    const char *sample;
    const char *before;
    const char *after;
    const char *complaint;
};

class BrokenRequest : public RequestReaderTest, public testing::WithParamInterface<Row>
{ };

TEST_P(BrokenRequest, IsRefused)
{
    const Row &row = GetParam();
    EXPECT_THAT(whenRefused(changed(row.sample, row.before, row.after)), HasSubstr(row.complaint));
}

constexpr const char *soft = "sale-soft-request.xml";
constexpr const char *returning = "return-request.xml";

INSTANTIATE_TEST_SUITE_P(Table, BrokenRequest,
    testing::Values(Row{returning, "\"Fiscal\"", "\"Soft\"", "only a sale can have"},
        Row{"rollback-request.xml", "\"Fiscal\"", "\"Soft\"", "only a sale can have"},
        Row{soft, ">Sale<", ">Return<", "only a sale can have"},
        Row{"sale-fiscal-request.xml", ">Sale<", ">Return<", "needs the element ChequeReference"},
        Row{returning, ">Return<", ">Sale<", "OperationType Sale needs the element PaidByBonus"},
        Row{returning, ">Return<", ">Rollback<", "needs the element TransactionReference"},
        Row{soft, "<Discount>0.00</Discount>\n     <Su", "<Discount>inf</Discount>\n     <Su",
            "Discount must be an amount, not \"inf\""},
        Row{soft, ">815.30</PaidByBonus>", ">-1.00</PaidByBonus>", "PaidByBonus must not be neg"},
        Row{soft, "<Price>45.90", "<Price>-45.90", "Price must not be negative"},
        Row{soft, ">2.000<", ">-2.000<", "Quantity must not be negative"},
        Row{soft, "<Mcp>0.00", "<Mcp>-0.01", "Mcp must not be negative"},
        Row{soft, "<Price>45.90", "<Price>999999999999.00", "Price times Quantity is too large"},
        Row{soft, "<Price>45.90</Price>\n      <Quantity>2.000",
            "<Price>999999999999.00</Price>\n      <Quantity>1.000",
            "the positions come to too much"},
        // With the other positions to the hundredth a million million.
        Row{soft, "<Price>45.90</Price>\n      <Quantity>2.000",
            "<Price>999999999276.50</Price>\n      <Quantity>1.000",
            "the positions come to too much"},
        Row{soft, "<PositionNumber>2<", "<PositionNumber>1<", "PositionNumber 1 is given twice"}));

} // namespace
} // namespace emulator
