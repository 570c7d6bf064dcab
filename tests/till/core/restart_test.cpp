// A till that was killed takes its document up again.

#include "host/storage/savetofilelogic.h"
#include "tests/till/support/tillfixture.h"

using namespace Qt::StringLiterals;

namespace {

class RestartTest : public TillFixture
{ };

TEST_F(RestartTest, TheOpenDocumentIsCurrentAgainAndRestoredWithoutEvent22)
{
    givenIdentifiedCard();
    givenSaleOf({u"1001"_s, u"1002"_s});
    givenRestart();
    ASSERT_TRUE(till->document());
    EXPECT_EQ(till->document()->getNumber(), u"17"_s);
    EXPECT_EQ(till->document()->getGoods().size(), 2);
    EXPECT_EQ(till->document()->getCardNumber(), u"2900000000017"_s);
    EXPECT_EQ(takeCalls(), QStringList{u"restoreLoyaltySystem"_s});
}

TEST_F(RestartTest, TheSystemHasItsEffectsBackWhenItRestores)
{
    givenCalculatedSale({u"1002"_s}, 10.0);
    givenRestart();
    EXPECT_EQ(loyalty->getDiscountImpacts().size(), 1);
    EXPECT_DOUBLE_EQ(till->document()->getSumAfterDiscounts(), 90.0);
}

TEST_F(RestartTest, APositionAddedAfterwardsGetsANewNumber)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    till->removePosition(2);
    givenRestart();
    givenSaleOf({u"1002"_s});
    EXPECT_TRUE(till->document()->getPosition(3));
}

TEST_F(RestartTest, ARepeatedScanRaisesTheLastPositionOfTheRestoredDocument)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    givenRestart();
    loyalty->hookIn(control::EActionType::Input, ActionTrigger::Order::Before,
        [](const control::Action &action) {
            action.insert(u"useLastChangedPosition"_s, true);
            return EContext::Result::Continue;
        });
    till->scan(u"whatever"_s);
    EXPECT_DOUBLE_EQ(till->document()->getPosition(2)->getBquant(), 2.0);
}

TEST_F(RestartTest, AClosedChequeDoesNotComeBack)
{
    givenClosedSale();
    givenRestart();
    EXPECT_FALSE(till->document());
    EXPECT_EQ(takeCalls(), QStringList{u"event 22"_s});
}

TEST_F(RestartTest, ACancelledChequeDoesNotComeBack)
{
    givenSaleOf({u"1001"_s});
    till->cancel();
    givenRestart();
    EXPECT_FALSE(till->document());
}

TEST_F(RestartTest, ARegistrationIsOnDiskBeforeTheChequeIsPutOut)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this] {
        loyalty->presented->setOperationId(u"T-1"_s);
        loyalty->giveBonusRecord(7.0);
        return true;
    };
    till->pay(till::PaymentKind::Card, std::nullopt);
    qsizetype records = 0;
    QString id;
    loyalty->behaviour[u"beforePutoutCheck"_s] = [&] {
        const auto kept = store->loadOpen();
        records = kept->getEffects().bonusRecords.size();
        id = kept->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId();
        return true;
    };
    till->close();
    EXPECT_EQ(records, 1);
    EXPECT_EQ(id, u"T-1"_s);
}

// Half of it would be what the plug-in has noted and saved without what it has granted.
TEST_F(RestartTest, AnOperationIsOnDiskWholeOrNotAtAll)
{
    const auto kept = [this](const QString &operation) {
        return store->loadOpen()->getStoredValue(u"FakeLoyalty"_s, operation, {}).toBool();
    };
    bool keptInTheMiddle = true;
    for (const QString &operation : {u"request"_s, u"spendPoints"_s, u"hasPointsForEarn"_s})
        loyalty->behaviour[operation] = [this, operation, kept, &keptInTheMiddle] {
            till->document()->setStoredValue(u"FakeLoyalty"_s, operation, true);
            MockFactory<SaveToFileLogic>::create()->save(till->document(), {});
            keptInTheMiddle = kept(operation);
            return true;
        };
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});

    till->calculate();
    EXPECT_FALSE(keptInTheMiddle);
    EXPECT_TRUE(kept(u"request"_s));
    loyalty->setAvailablePoints(50.0);
    till->payWithPoints(10.0);
    EXPECT_FALSE(keptInTheMiddle);
    EXPECT_TRUE(kept(u"spendPoints"_s));
    bool keptBeforePutout = false;
    loyalty->behaviour[u"beforePutoutCheck"_s]
        = [&] { return keptBeforePutout = kept(u"hasPointsForEarn"_s); };
    till->close();
    EXPECT_FALSE(keptInTheMiddle);
    EXPECT_TRUE(keptBeforePutout);
}

TEST_F(RestartTest, AFailingRestoreDoesNotKeepTheTillFromSelling)
{
    givenSaleOf({u"1001"_s});
    givenRestart();
    loyalty->behaviour[u"restoreLoyaltySystem"_s]
        = []() -> bool { throw std::runtime_error("broken"); };
    till->start();
    EXPECT_TRUE(till->close().left);
}

} // namespace
