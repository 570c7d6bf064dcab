#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class CouponsToPrintTest : public ClientTest
{
protected:
    CouponsToPrintTest() { givenSetting(u"couponMessageDelimeter"_s, u"||"_s); }
    static QString answer(const QString &message, const QStringList &numbers)
    {
        QString content = u"<ChequeMessage>%1</ChequeMessage>"_s.arg(message);
        for (const QString &number : numbers)
            content += u"<c><InstantCoupon><Number>%1</Number></InstantCoupon></c>"_s.arg(number);
        return u"<a>" + content + u"</a>";
    }
    /// Each coupon as "number: message".
    QStringList whenRead(const QString &message, const QStringList &numbers)
    {
        QStringList coupons;
        for (const QVariant &coupon :
            client().createCouponsToPrint(parsed(answer(message, numbers)))) {
            const Values values = coupon.toMap();
            EXPECT_EQ(values.keys(), QStringList({u"Message"_s, u"Number"_s}));
            EXPECT_EQ(values.value(u"Message"_s).typeId(), QMetaType::QString);
            coupons.append(values.value(u"Number"_s).toString() + u": "
                + values.value(u"Message"_s).toString());
        }
        return coupons;
    }
};

} // namespace

TEST_F(CouponsToPrintTest, EachCouponHasTheTextThatNamesIt)
{
    EXPECT_EQ(whenRead(u"Hello 123 || Coupon 123 || Coupon 456 "_s, {u"456"_s, u"123"_s}),
        QStringList({u"456: Coupon 456"_s, u"123: Coupon 123"_s}));
}

TEST_F(CouponsToPrintTest, ACouponThatNoTextNamesHasAnEmptyOne)
{
    EXPECT_EQ(
        whenRead(u"789||123"_s, {u"789"_s, u"12"_s}), QStringList({u"789: "_s, u"12: 123"_s}));
}

TEST_F(CouponsToPrintTest, TheFirstTextThatContainsTheNumberCounts)
{
    EXPECT_EQ(whenRead(u"||||AB1||b1 b||B1"_s, {u"B1"_s, u"b1"_s}),
        QStringList({u"B1: AB1"_s, u"b1: b1 b"_s}));
}

TEST_F(CouponsToPrintTest, WithoutADelimiterThereAreNoTexts)
{
    EXPECT_EQ(whenRead(u"Coupon 123"_s, {u"123"_s}), QStringList(u"123: "_s));
}

TEST_F(CouponsToPrintTest, ACouponWithoutNumberTakesTheFirstText)
{
    EXPECT_EQ(whenRead(u"x||A||B"_s, {u""_s}), QStringList(u": A"_s));
}

TEST_F(CouponsToPrintTest, WithoutCouponsThereIsNoKey)
{
    Values result;
    client().fillRequestResult(parsed(answer(u"x||A"_s, {})), result);
    EXPECT_FALSE(result.contains(u"CouponsToPrint"_s));
}

TEST_F(CouponsToPrintTest, TheResultCarriesTheList)
{
    Values result;
    client().fillRequestResult(parsed(answer(u"x||A1"_s, {u"1"_s})), result);
    EXPECT_EQ(result.value(u"CouponsToPrint"_s).typeId(), QMetaType::QVariantList);
    EXPECT_EQ(result.value(u"CouponsToPrint"_s).toList().size(), 1);
    EXPECT_EQ(result.value(u"ChequeMessage"_s), QVariant(u"x"_s));
}
