// Scans are told apart by the catalogue's rules.

#include "tests/till/support/tillfixture.h"

using namespace Qt::StringLiterals;

namespace {

class ScanningTest : public TillFixture
{
public:
    /// The plug-in takes the next scan for the last position's.
    void givenUseOfLastPosition()
    {
        loyalty->hookIn(control::EActionType::Input, ActionTrigger::Order::Before,
            [](const control::Action &action) {
                action.insert(u"useLastChangedPosition"_s, true);
                return EContext::Result::Continue;
            });
    }
};

TEST_F(ScanningTest, ACardIsIdentifiedAsScanned)
{
    const auto outcome = till->scan(u"2900000000017"_s);
    EXPECT_EQ(loyalty->presentedHow, ECardNumberType::Scanned);
    EXPECT_EQ(till->document()->getCardNumber(), u"2900000000017"_s);
    EXPECT_FALSE(outcome.result.isValid());
}

TEST_F(ScanningTest, ARefusedCardIsTold)
{
    loyalty->refuseWith(u"id"_s, u"Нет"_s, false);
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    EXPECT_TRUE(till->scan(u"2900000000017"_s).refusal);
}

TEST_F(ScanningTest, ACouponIsAddedWithItsData)
{
    QString raw;
    loyalty->hookIn(control::EActionType::AddCoupon, ActionTrigger::Order::After,
        [&](const control::Action &action) {
            raw = action.value(u"rawdata"_s, {}).toString();
            return EContext::Result::Continue;
        });
    till->scan(u"990017"_s);
    EXPECT_TRUE(till->document()->getCoupon(u"990017"_s));
    EXPECT_EQ(raw, u"990017"_s);
}

TEST_F(ScanningTest, BarcodesAndCodesAreGoods)
{
    till->scan(u"461001"_s);
    till->scan(u"1002"_s);
    ASSERT_EQ(till->document()->getGoods().size(), 2);
    EXPECT_EQ(till->document()->getPosition(1)->getCode(), u"1001"_s);
    EXPECT_EQ(till->document()->getPosition(2)->getCode(), u"1002"_s);
}

TEST_F(ScanningTest, WhatIsUnknownOpensNoSale)
{
    EXPECT_TRUE(whyNot([&] { till->scan(u"55"_s); }).startsWith(u"55 — не карта, не купон"));
    EXPECT_FALSE(till->document());
}

TEST_F(ScanningTest, WhatIsUnknownIsAnErrorOnAnOpenChequeToo)
{
    givenSaleOf({u"1001"_s});
    EXPECT_TRUE(whyNot([&] { till->scan(u"55"_s); }).startsWith(u"55 — не карта, не купон"));
    EXPECT_FALSE(document()->getModifiers().isSet(modifiers::Type::RepeatedScan));
}

TEST_F(ScanningTest, TheInputActionSeesDataAndModifier17)
{
    bool isSet = false;
    loyalty->hookIn(control::EActionType::Input, ActionTrigger::Order::Before,
        [&](const control::Action &action) {
            EXPECT_EQ(action.value(u"rawdata"_s, {}), QVariant(u"461001"_s));
            isSet = document()->getModifiers().isSet(modifiers::Type::RepeatedScan);
            return EContext::Result::Continue;
        });
    till->scan(u"461001"_s);
    EXPECT_TRUE(isSet);
    EXPECT_FALSE(document()->getModifiers().isSet(modifiers::Type::RepeatedScan));
}

TEST_F(ScanningTest, AStoppedInputDoesNothing)
{
    loyalty->hookIn(control::EActionType::Input, ActionTrigger::Order::Before,
        [](const control::Action &) { return EContext::Result::Refuse; });
    EXPECT_EQ(till->scan(u"461001"_s).result, QVariant(0));
    EXPECT_TRUE(till->document()->getGoods().isEmpty());
}

TEST_F(ScanningTest, ARepeatedScanRaisesTheLastPosition)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    givenUseOfLastPosition();
    till->scan(u"whatever"_s);
    EXPECT_EQ(document()->getGoods().size(), 2);
    EXPECT_DOUBLE_EQ(document()->getPosition(2)->getBquant(), 2.0);
    EXPECT_DOUBLE_EQ(document()->getPosition(2)->getSumn(), 200.0);
}

TEST_F(ScanningTest, AChangeOfAnotherPositionDoesNotMisleadARepeatedScan)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    till->changeQuantity(1, 5.0);
    givenUseOfLastPosition();
    till->scan(u"whatever"_s);
    EXPECT_DOUBLE_EQ(document()->getPosition(1)->getBquant(), 5.0);
    EXPECT_DOUBLE_EQ(document()->getPosition(2)->getBquant(), 2.0);
}

TEST_F(ScanningTest, ARepeatedScanOfAPositionThatWasTakenOffIsAScanLikeAnyOther)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    till->removePosition(2);
    givenUseOfLastPosition();
    till->scan(u"1002"_s);
    EXPECT_DOUBLE_EQ(document()->getPosition(1)->getBquant(), 1.0);
    EXPECT_EQ(document()->getPosition(3)->getCode(), u"1002"_s);
    till->removePosition(3);
    EXPECT_TRUE(whyNot([&] { till->scan(u"whatever"_s); }).startsWith(u"whatever — не карта"));
}

TEST_F(ScanningTest, ARepeatedScanOnANewChequeIsAScanLikeAnyOther)
{
    givenClosedSale();
    givenUseOfLastPosition();
    till->scan(u"1002"_s);
    EXPECT_EQ(document()->getPosition(1)->getCode(), u"1002"_s);
}

TEST_F(ScanningTest, TheLastPositionOfAReturnOfASaleIsNotRaised)
{
    till->openReturnOf(givenClosedSale());
    givenUseOfLastPosition();
    EXPECT_TRUE(whyNot([&] { till->scan(u"461001"_s); }).startsWith(u"возврат по чеку берёт"));
    EXPECT_DOUBLE_EQ(document()->getPosition(1)->getBquant(), 1.0);
}

TEST_F(ScanningTest, RaisingTheLastPositionAsksTheQuantityTrigger)
{
    givenSaleOf({u"1001"_s});
    givenUseOfLastPosition();
    loyalty->hookIn(control::EActionType::ApplyModifiers, ActionTrigger::Order::Before,
        [](const control::Action &) { return EContext::Result::Stop; });
    EXPECT_EQ(till->scan(u"461001"_s).result, QVariant(1));
    EXPECT_DOUBLE_EQ(document()->getPosition(1)->getBquant(), 1.0);
}

} // namespace
