#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class ChequeRequestTest : public ClientTest
{
protected:
    ChequeRequestTest()
    {
        givenTime(QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9)));
        givenCheque();
    }
    /// A position of 100 that was discounted to 90.
    void givenDiscountedPosition()
    {
        const auto position = givenPosition(u"A"_s, 100);
        position->setSumb(90);
    }
    static QDomElement payloadOf(const QDomDocument &request)
    {
        return request.elementsByTagName(u"request"_s).at(0).firstChildElement();
    }
    QDomElement whenSold(const QSharedPointer<korvel::ConfirmationInfo> &confirmation = {})
    {
        return payloadOf(
            client().formSaleChequeRequest(document(), korvel::chequetype::soft, confirmation));
    }
    QDomElement whenReturned()
    {
        QDomDocument request;
        client().formReturnChequeRequest(document(), request);
        return payloadOf(request);
    }
    /// The four amounts of a sale, in the order of the request.
    static QString amountsOf(const QDomElement &payload)
    {
        QStringList texts;
        for (const QDomElement &child : childElements(payload).mid(3, 4))
            texts.append(child.tagName() + u'=' + child.text());
        return texts.join(u' ');
    }
};

} // namespace

TEST_F(ChequeRequestTest, AFirstCalculationSendsTheHostsFigures)
{
    givenDiscountedPosition();
    EXPECT_EQ(amountsOf(whenSold()),
        u"Summ=100.00 Discount=0.00 SummDiscounted=90.00 PaidByBonus=90.00"_s);
}

TEST_F(ChequeRequestTest, ARepeatedCalculationSendsTheStoredFigures)
{
    givenDiscountedPosition();
    givenStored(u"chequeData"_s,
        {{u"Summ"_s, 1.0}, {u"Discount"_s, u"2.5"_s}, {u"SummDiscounted"_s, 3.0},
            {u"PaidByBonus"_s, 4.005}});
    EXPECT_EQ(
        amountsOf(whenSold()), u"Summ=1.00 Discount=2.50 SummDiscounted=3.00 PaidByBonus=4.00"_s);
}

TEST_F(ChequeRequestTest, EachStoredFigureCountsByItself)
{
    givenDiscountedPosition();
    const QMap<QString, QString> expected = {
        {u"Summ"_s, u"Summ=7.00 Discount=0.00 SummDiscounted=90.00 PaidByBonus=90.00"_s},
        {u"Discount"_s, u"Summ=100.00 Discount=7.00 SummDiscounted=90.00 PaidByBonus=90.00"_s},
        {u"SummDiscounted"_s, u"Summ=100.00 Discount=0.00 SummDiscounted=7.00 PaidByBonus=90.00"_s},
        {u"PaidByBonus"_s, u"Summ=100.00 Discount=0.00 SummDiscounted=90.00 PaidByBonus=7.00"_s},
        {u"summ"_s, u"Summ=100.00 Discount=0.00 SummDiscounted=90.00 PaidByBonus=90.00"_s},
    };
    for (auto row = expected.cbegin(); row != expected.cend(); ++row) {
        SCOPED_TRACE(row.key().toStdString());
        givenStored(u"chequeData"_s, {{row.key(), 7.0}});
        EXPECT_EQ(amountsOf(whenSold()), row.value());
    }
}

TEST_F(ChequeRequestTest, AStoredFigureThatIsNoNumberIsZero)
{
    givenDiscountedPosition();
    givenStored(u"chequeData"_s, {{u"Summ"_s, u"x"_s}, {u"PaidByBonus"_s, QVariant()}});
    EXPECT_EQ(
        amountsOf(whenSold()), u"Summ=0.00 Discount=0.00 SummDiscounted=90.00 PaidByBonus=0.00"_s);
}

TEST_F(ChequeRequestTest, ReadingStoredFiguresLeavesThemAsTheyAre)
{
    givenStored(u"chequeData"_s, {{u"Summ"_s, 1.0}});
    whenSold();
    EXPECT_EQ(document()->getStoredValue(korvel::group, u"chequeData"_s, {}).toMap(),
        (Values{{u"Summ"_s, 1.0}}));
}

TEST_F(ChequeRequestTest, ASaleIsWrittenInItsOrder)
{
    givenDiscountedPosition();
    givenCoupon(u"C"_s);
    givenStored(u"chequeData"_s, {{u"ExtendedAttributes"_s, Values{{u"k"_s, u"v"_s}}}});
    EXPECT_TRUE(isXml(whenSold(QSharedPointer<korvel::ConfirmationInfo>::create()),
        uR"(<ChequeRequest ChequeType="Soft">
        <Card><CardNumber>2900000000017</CardNumber></Card>
        <OperationType>Sale</OperationType><Number>17</Number>
        <Summ>100.00</Summ><Discount>0.00</Discount><SummDiscounted>90.00</SummDiscounted>
        <PaidByBonus>90.00</PaidByBonus>
        <WriteOffConfirm><Confirm>0</Confirm><SendCode>0</SendCode><VerificationCode/>
        </WriteOffConfirm>
        <ExtendedAttribute><Key>k</Key><Value>v</Value></ExtendedAttribute>
        <Coupons><Coupon><Number>C</Number></Coupon></Coupons>
        <Item><PositionNumber>1</PositionNumber><Article>A</Article><Price>100.00</Price>
        <Quantity>1.000</Quantity><Summ>100.00</Summ><Discount>10.00</Discount>
        <SummDiscounted>90.00</SummDiscounted><Mcp>0.00</Mcp></Item>
        <DateTime>2024-03-05T17:04:09</DateTime><POS/><Organization/><BusinessUnit/>
        </ChequeRequest>)"_s));
}

TEST_F(ChequeRequestTest, ASaleWithoutConfirmationAndCouponsHasNeither)
{
    const QStringList names = childNames(whenSold());
    EXPECT_FALSE(names.contains(u"WriteOffConfirm"_s));
    EXPECT_FALSE(names.contains(u"Coupons"_s));
}

TEST_F(ChequeRequestTest, ConfiguredAttributesAreNotSentAtChequeLevel)
{
    HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes.a:key"_s, u"Color"_s);
    HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes.a:value"_s, u"red"_s);
    givenDiscountedPosition();
    const QDomElement payload = whenSold();
    EXPECT_FALSE(childNames(payload).contains(u"ExtendedAttribute"_s));
    EXPECT_EQ(payload.elementsByTagName(u"ExtendedAttribute"_s).size(), 1);
}

TEST_F(ChequeRequestTest, TheChequeTypeIsWrittenAsItIs)
{
    const QDomDocument request = client().formSaleChequeRequest(document(), u"Any thing"_s, {});
    EXPECT_EQ(payloadOf(request).attribute(u"ChequeType"_s), u"Any thing"_s);
}

TEST_F(ChequeRequestTest, AReturnIsWrittenInItsOrderWithAPercentage)
{
    givenDiscountedPosition();
    givenCoupon(u"C"_s);
    document()->setReferencedNumber(u"16"_s);
    givenStored(u"chequeData"_s,
        {{u"Summ"_s, 1.0}, {u"Discount"_s, 2.0},
            {u"ExtendedAttributes"_s, Values{{u"k"_s, u"v"_s}}}});
    EXPECT_TRUE(isXml(whenReturned(), uR"(<ChequeRequest ChequeType="Fiscal">
        <Card><CardNumber>2900000000017</CardNumber></Card>
        <OperationType>Return</OperationType><Number>17</Number>
        <Summ>100.00</Summ><SummDiscounted>90.00</SummDiscounted><Discount>10.00</Discount>
        <ChequeReference><Number>16</Number><DateTime/><POS/><Organization/><BusinessUnit/>
        </ChequeReference>
        <Item><PositionNumber>1</PositionNumber><Article>A</Article><Price>100.00</Price>
        <Quantity>1.000</Quantity><Summ>100.00</Summ><Discount>10.00</Discount>
        <SummDiscounted>90.00</SummDiscounted><Mcp>0.00</Mcp></Item>
        <DateTime>2024-03-05T17:04:09</DateTime><POS/><Organization/><BusinessUnit/>
        </ChequeRequest>)"_s));
}

TEST_F(ChequeRequestTest, TheEnvelopeIsBuiltInTheGivenDocument)
{
    QDomDocument request;
    client().formReturnChequeRequest(document(), request);
    EXPECT_EQ(request.documentElement().tagName(), u"soap:Envelope"_s);
    EXPECT_EQ(client().formSaleChequeRequest(document(), u"Soft"_s, {}).documentElement().tagName(),
        u"soap:Envelope"_s);
}
