#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class CouponsTest : public DeskTest
{
protected:
    CouponsTest()
    {
        CouponData spring;
        spring.number = u"18"_s;
        spring.emission = u"SPRING"_s;
        spring.reduction = Percent::ofHundredths(500);
        CouponData winter = spring;
        winter.number = u"25"_s;
        winter.applicable = false;
        CouponData single = spring;
        single.number = u"32"_s;
        single.once = true;
        data.coupons = {spring, winter, single};
    }

    static SaleRequest withCoupons(const QString &number, const QStringList &coupons)
    {
        SaleRequest sale = offlineFiscal(number, {{"1001", "600.00", "1.000"}});
        sale.coupons = coupons;
        return sale;
    }

    ChequeFigures whenCalculated(const QStringList &coupons)
    {
        SaleRequest sale = withCoupons(u"99"_s, coupons);
        sale.fiscal = false;
        return whenAccepted(sale);
    }

    void givenInstantCoupon()
    {
        data.instantCoupons = {
            {amount("500.00"), u"9901"_s, u"Купон {coupon}: {sum}"_s, Percent::ofHundredths(1000)}};
    }
};

TEST_F(CouponsTest, ApplicableOneLowersTheSum)
{
    const ChequeFigures figures = whenCalculated({u"18"_s});
    EXPECT_EQ(figures.sumDiscounted, amount("570.00"));
    ASSERT_EQ(figures.coupons.size(), 1u);
    EXPECT_EQ(figures.coupons[0].applicability, Applicability::Applicable);
    EXPECT_EQ(figures.coupons[0].emission, u"SPRING");
}

TEST_F(CouponsTest, OthersAreAnsweredWithTheirCodeAndLowerNothing)
{
    const ChequeFigures figures = whenCalculated({u"25"_s, u"404"_s});
    EXPECT_EQ(figures.sumDiscounted, amount("600.00"));
    ASSERT_EQ(figures.coupons.size(), 2u);
    EXPECT_EQ(figures.coupons[0].applicability, Applicability::NotApplicable);
    EXPECT_EQ(figures.coupons[1].applicability, Applicability::Unknown);
    EXPECT_EQ(figures.coupons[1].number, u"404");
}

TEST_F(CouponsTest, PresentedTwiceCountOnce)
{
    const ChequeFigures figures = whenCalculated({u"18"_s, u"18"_s});
    EXPECT_EQ(figures.sumDiscounted, amount("570.00"));
    EXPECT_EQ(figures.coupons[1].applicability, Applicability::AlreadyUsed);
}

TEST_F(CouponsTest, ReusableOneHoldsForTheNextChequeToo)
{
    whenAccepted(withCoupons(u"17"_s, {u"18"_s}));
    EXPECT_EQ(whenCalculated({u"18"_s}).sumDiscounted, amount("570.00"));
}

TEST_F(CouponsTest, SingleOneIsUsedUpByARegistration)
{
    EXPECT_EQ(whenCalculated({u"32"_s}).sumDiscounted, amount("570.00"));
    whenAccepted(withCoupons(u"17"_s, {u"32"_s}));
    const ChequeFigures figures = whenCalculated({u"32"_s});
    EXPECT_EQ(figures.coupons[0].applicability, Applicability::AlreadyUsed);
    EXPECT_EQ(figures.sumDiscounted, amount("600.00"));
}

TEST_F(CouponsTest, SingleOneIsHandedBackByARollback)
{
    const ChequeFigures sold = whenAccepted(withCoupons(u"17"_s, {u"32"_s}));
    whenAccepted(RollbackRequest{{}, QString::fromLatin1(testCard), sold.transaction});
    EXPECT_EQ(whenCalculated({u"32"_s}).sumDiscounted, amount("570.00"));
}

TEST_F(CouponsTest, InstantOneComesWithTheRegistrationOnly)
{
    givenInstantCoupon();
    EXPECT_TRUE(whenCalculated({}).instantCoupons.isEmpty());
    const ChequeFigures figures = whenAccepted(withCoupons(u"17"_s, {}));
    EXPECT_EQ(figures.instantCoupons, QStringList{u"9901000000018"_s});
    EXPECT_EQ(figures.chequeMessage, u"\u2013\u2013Купон 9901000000018: 600.00");
}

TEST_F(CouponsTest, InstantOneNeedsItsSum)
{
    givenInstantCoupon();
    const ChequeFigures figures
        = whenAccepted(offlineFiscal(u"17"_s, {{"1001", "499.99", "1.000"}}));
    EXPECT_TRUE(figures.instantCoupons.isEmpty());
}

TEST_F(CouponsTest, InstantOneHoldsOnceOnALaterCheque)
{
    givenInstantCoupon();
    const QStringList issued = whenAccepted(withCoupons(u"17"_s, {})).instantCoupons;
    EXPECT_EQ(whenCalculated(issued).sumDiscounted, amount("540.00"));
    whenAccepted(withCoupons(u"18"_s, issued));
    EXPECT_EQ(whenCalculated(issued).coupons[0].applicability, Applicability::AlreadyUsed);
}

TEST_F(CouponsTest, InstantOneOfACancelledSaleIsUnknown)
{
    givenInstantCoupon();
    const ChequeFigures sold = whenAccepted(withCoupons(u"17"_s, {}));
    whenAccepted(RollbackRequest{{}, QString::fromLatin1(testCard), sold.transaction});
    EXPECT_EQ(whenCalculated(sold.instantCoupons).coupons[0].applicability, Applicability::Unknown);
}

TEST_F(CouponsTest, InstantOnesHaveDifferentNumbers)
{
    givenInstantCoupon();
    const ChequeFigures one = whenAccepted(withCoupons(u"17"_s, {}));
    const ChequeFigures other = whenAccepted(withCoupons(u"18"_s, {}));
    EXPECT_NE(one.instantCoupons, other.instantCoupons);
}

} // namespace
} // namespace emulator
