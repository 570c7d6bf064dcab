#include "tests/emulator/support/samples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

TEST(Protocol, EverySampleFits)
{
    ASSERT_THAT(sampleNames(), testing::Contains(u"fault.xml"_s));
    for (const QString &name : sampleNames()) {
        SCOPED_TRACE(qPrintable(name));
        EXPECT_EQ(complaintOfSchemaFiles(sample(qPrintable(name))), QString());
    }
}

TEST(Protocol, EverySampleSaysWhatItIs)
{
    for (const QString &name : sampleNames()) {
        const QByteArray xml = sample(qPrintable(name));
        EXPECT_EQ(xml.indexOf("<!-- "), xml.indexOf('\n') + 1) << qPrintable(name);
    }
}

struct Row
{
    const char *sample;
    const char *before;
    const char *after;
};

class BrokenSample : public testing::TestWithParam<Row>
{ };

TEST_P(BrokenSample, DoesNotFit)
{
    QByteArray xml = sample(GetParam().sample);
    ASSERT_TRUE(xml.contains(GetParam().before));
    xml.replace(GetParam().before, GetParam().after);
    EXPECT_THAT(complaintOfSchemaFiles(xml).toStdString(), testing::StartsWith("does not fit: "));
}

constexpr const char *balance = "balance-request.xml";
constexpr const char *soft = "sale-soft-request.xml";
constexpr const char *returning = "return-request.xml";
constexpr const char *rollback = "rollback-request.xml";
constexpr const char *answer = "sale-answer.xml";

INSTANTIATE_TEST_SUITE_P(Table, BrokenSample,
    testing::Values(Row{balance, "loyalty/processing", "loyalty/other"},
        Row{balance, "<orgName>Korvel</orgName>", ""}, Row{balance, "     <POS>1</POS>", ""},
        Row{balance, "T17:04:09<", "T17:04:09.123<"}, Row{balance, "T17:04:09<", "T17:04:09Z<"},
        Row{balance, "2024-03-05T", "2024-02-30T"},
        Row{balance, "<CardNumber>2900000000017</CardNumber>", ""},
        Row{balance, "</BalanceRequest>", "<More/></BalanceRequest>"},
        Row{soft, " ChequeType=\"Soft\"", ""}, Row{soft, "\"Soft\"", "\"Hard\""},
        Row{soft, ">Sale<", ">Gift<"}, Row{soft, ">2.000<", ">2.00<"},
        Row{soft, ">2.000<", ">2,000<"}, Row{soft, "<Summ>815.30", "<Summ>815.3"},
        Row{soft, "<Summ>815.30", "<Summ>inf"}, Row{soft, "<Price>45.90", "<Price>nan"},
        Row{soft, "<SendCode>0</SendCode>", ""}, Row{soft, "<Confirm>0<", "<Confirm>2<"},
        Row{soft, "<Confirm>0<", "<Confirm>true<"},
        Row{soft, "<PositionNumber>1<", "<PositionNumber>one<"},
        Row{soft, "<Article>1001</Article>", ""}, Row{soft, "<Mcp>0.00</Mcp>", ""},
        Row{soft, "<Key>Color</Key>", ""},
        Row{returning, "<SummDiscounted>41.31</SummDiscounted>\n     <Discount>10.00</Discount>",
            "<Discount>10.00</Discount>\n     <SummDiscounted>41.31</SummDiscounted>"},
        Row{returning, "<DateTime>2024-03-05</DateTime>", "<DateTime>yesterday</DateTime>"},
        Row{returning, "<ChequeReference>", "<ChequeReference><Card/>"},
        Row{rollback, "<OperationType>Rollback</OperationType>", ""},
        Row{rollback, "<TransactionID>0000000001</TransactionID>", ""},
        Row{answer, "<ReturnCode>0</ReturnCode>", "<ReturnCode>ok</ReturnCode>"},
        Row{answer, "<AvailablePayment>371.03</AvailablePayment>", ""},
        Row{answer, "<ApplicabilityCode>1</ApplicabilityCode>", ""},
        Row{answer, "</ChequeResponse>", "<CashierMessage/></ChequeResponse>"},
        Row{"balance-answer.xml", ">true<", ">True<"},
        Row{"fault.xml", "<faultstring>", "<reason/><faultstring>"}));

} // namespace
} // namespace emulator
