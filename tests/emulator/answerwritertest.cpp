#include "emulator/soap/answerwriter.h"

#include "tests/emulator/support/requests.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/xmltree.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

ChequeFigures figures()
{
    ChequeFigures figures;
    figures.processed = QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9, 999));
    figures.sum = amount("100.00");
    figures.sumDiscounted = amount("90.00");
    figures.earned = amount("4.50");
    figures.earnedStatus = amount("0.90");
    figures.positions = {{1, amount("100.00"), amount("90.00"), amount("4.50"), amount("0.90"),
        amount("10.00"), {}}};
    return figures;
}

TEST(AnswerWriter, WritesARefusalWithoutFigures)
{
    const QByteArray xml = writeAnswer(ChequeAnswer{{80241, u"Карта не найдена"_s}, {}});
    EXPECT_EQ(complaintOfSchemaFiles(xml), QString());
    EXPECT_EQ(firstValue(xml, u"ReturnCode"_s), u"80241");
    EXPECT_EQ(firstValue(xml, u"Message"_s), u"Карта не найдена");
    EXPECT_FALSE(xml.contains("Summ"));
}

TEST(AnswerWriter, PutsTheChequeBeforeItsItems)
{
    ChequeFigures cheque = figures();
    cheque.positions[0].sum = amount("33.00");
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, cheque});
    EXPECT_EQ(complaintOfSchemaFiles(xml), QString());
    EXPECT_EQ(firstValue(xml, u"Summ"_s), u"100.00");
    EXPECT_EQ(firstValue(xml, u"WriteoffBonus"_s), u"0.00");
}

TEST(AnswerWriter, AddsStatusPointsToTheActiveOnes)
{
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, figures()});
    EXPECT_EQ(firstValue(xml, u"ActiveChargedBonus"_s), u"5.40");
    EXPECT_EQ(firstValue(xml, u"ChargedStatusBonus"_s), u"0.90");
}

TEST(AnswerWriter, WritesTheChequesDiscountAsAnAmountAndThePositionsAsAPercentage)
{
    ChequeFigures cheque = figures();
    cheque.positions[0].sumDiscounted = amount("80.00");
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, cheque});
    EXPECT_TRUE(xmlLines(xml).join(u'\n').contains(u"ChequeResponse/Discount = 10.00"));
    EXPECT_TRUE(xmlLines(xml).join(u'\n').contains(u"Item/Discount = 20.00"));
}

TEST(AnswerWriter, WritesTheAttributesOfAPositionLast)
{
    ChequeFigures cheque = figures();
    cheque.positions[0].attributes = {{u"StickersInterchange"_s, u"{\"amount\":2}"_s}};
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, cheque});
    EXPECT_EQ(complaintOfSchemaFiles(xml), QString());
    EXPECT_TRUE(xmlLines(xml).last().endsWith(u"Item/ExtendedAttribute/Value = {\"amount\":2}"));
}

TEST(AnswerWriter, WritesTheTimeWithoutFractionAndZone)
{
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, figures()});
    EXPECT_EQ(firstValue(xml, u"Processed"_s), u"2024-03-05T17:04:09");
}

TEST(AnswerWriter, LeavesOutMessagesThatAreEmpty)
{
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, figures()});
    for (const char *name : {"VerificationCode", "CashierMessage", "ChequeMessage", "Coupon"})
        EXPECT_FALSE(xml.contains(name)) << name;
}

TEST(AnswerWriter, EscapesTexts)
{
    ChequeFigures cheque = figures();
    cheque.cashierMessage = u"<b> & \"c\""_s;
    const QByteArray xml = writeAnswer(ChequeAnswer{{}, cheque});
    EXPECT_EQ(firstValue(xml, u"CashierMessage"_s), u"<b> & \"c\"");
}

TEST(AnswerWriter, GivesARepeatAsItWas)
{
    EXPECT_EQ(writeAnswer(Answer(RepeatedAnswer{0, "<as it was/>"})), "<as it was/>");
}

TEST(AnswerWriter, WritesFaults)
{
    const QByteArray xml = writeFault(FaultOrigin::Server, u"disk full"_s);
    EXPECT_EQ(complaintOfSchemaFiles(xml), QString());
    EXPECT_EQ(firstValue(xml, u"faultcode"_s), u"soap:Server");
    EXPECT_EQ(firstValue(xml, u"faultstring"_s), u"disk full");
}

} // namespace
} // namespace emulator
