#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class CardElementsTest : public ClientTest
{
protected:
    CardElementsTest() { givenCurrentDocument(); }
    QDomElement whenConfirmed(const QSharedPointer<korvel::ConfirmationInfo> &confirmation)
    {
        return client().formWriteOffConfirm(confirmation, m_request);
    }
    QDomElement whenCouponsAreFormed() { return client().formCoupons(document(), m_request); }
    QDomDocument m_request;
};

/// A document that says it carries coupons but lists none.
class ClaimingDocument : public AbstractDocument
{
public:
    using AbstractDocument::AbstractDocument;
    [[nodiscard]] bool hasCoupons() const override { return true; }
};

} // namespace

TEST_F(CardElementsTest, ACardIsItsNumber)
{
    EXPECT_TRUE(isXml(client().formCard(makeCard(u"29<17"_s), m_request),
        u"<Card><CardNumber>29&lt;17</CardNumber></Card>"_s));
}

TEST_F(CardElementsTest, ACardWithoutNumberIsStillWritten)
{
    EXPECT_TRUE(isXml(
        client().formCard(makeCard({}), m_request), u"<Card><CardNumber></CardNumber></Card>"_s));
}

TEST_F(CardElementsTest, NoConfirmationIsNoElement)
{
    EXPECT_TRUE(whenConfirmed({}).isNull());
}

TEST_F(CardElementsTest, AConfirmationIsTwoFlagsAndTheCode)
{
    const auto confirmation = QSharedPointer<korvel::ConfirmationInfo>::create();
    confirmation->setConfirm(true);
    EXPECT_TRUE(isXml(whenConfirmed(confirmation),
        uR"(<WriteOffConfirm><Confirm>1</Confirm><SendCode>0</SendCode><VerificationCode/>
        </WriteOffConfirm>)"_s));
    confirmation->setConfirm(false);
    confirmation->setSendCode(true);
    confirmation->setVerificationCode(u" 12 "_s);
    EXPECT_TRUE(isXml(
        whenConfirmed(confirmation), uR"(<WriteOffConfirm><Confirm>0</Confirm><SendCode>1</SendCode>
        <VerificationCode> 12 </VerificationCode></WriteOffConfirm>)"_s));
}

TEST_F(CardElementsTest, NoCouponsAreNoElement)
{
    EXPECT_TRUE(whenCouponsAreFormed().isNull());
}

TEST_F(CardElementsTest, CouponsStandInTheDocumentsOrderWithNothingButTheirNumbers)
{
    givenCoupon(u"B"_s)->setDisplayedNumber(u"shown"_s);
    givenCoupon(u"A"_s);
    EXPECT_TRUE(isXml(whenCouponsAreFormed(),
        uR"(<Coupons><Coupon><Number>B</Number></Coupon><Coupon><Number>A</Number></Coupon>
        </Coupons>)"_s));
}

TEST_F(CardElementsTest, AnEmptyListOfClaimedCouponsIsAnEmptyElement)
{
    const auto claiming = QSharedPointer<ClaimingDocument>::create(EDocumentType::Sale, u"1"_s);
    const QDomElement coupons = client().formCoupons(claiming, m_request);
    EXPECT_EQ(coupons.tagName(), u"Coupons"_s);
    EXPECT_EQ(childNames(coupons), QStringList());
}
