// Calculating a sale and paying with points: what is announced, emptied, copied and applied.

#include "host/framework/activitynotifier.h"
#include "tests/till/support/tillfixture.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList announcedRequest{u"event 72"_s, u"request"_s, u"event 73"_s};

class CalculationTest : public TillFixture
{
public:
    void givenAnswer(
        const QString &operation, const std::function<void()> &effects, bool answer = true)
    {
        loyalty->behaviour[operation] = [effects, answer] {
            effects();
            return answer;
        };
    }
    void givenAnswer(bool answer)
    {
        givenAnswer(
            u"request"_s, [] {}, answer);
    }
    double toPay() const { return till->document()->getSumAfterDiscounts(); }
    const LoyaltyEffects &copied() const { return till->document()->getEffects(); }
};

TEST_F(CalculationTest, TheRequestIsAnnounced)
{
    givenSaleOf({u"1001"_s});
    EXPECT_EQ(till->calculate().result, QVariant(true));
    EXPECT_EQ(takeCalls(), announcedRequest);
}

TEST_F(CalculationTest, Event72CarriesTheMessageForTheCashier)
{
    class Listener : public BaseActivityListener
    {
    public:
        void handleEvent(const Event &event) override
        {
            if (event.getCode() == EActivityListener::LoyaltyRequestStarted)
                message = event.getArguments().value(u"message"_s).value<tr::Tr>();
        }
        tr::Tr message;
    } listener;
    Singleton<ActivityNotifier>::instance()->subscribe(&listener);
    givenSaleOf({u"1001"_s});
    till->calculate();
    EXPECT_EQ(listener.message.id(), u"processLoyaltyMessage"_s);
    EXPECT_EQ(listener.message.ru(), u"Обращение к системе лояльности"_s);
}

TEST_F(CalculationTest, TheTriggersOfTheTotalRunFirstAndAreNotAnnounced)
{
    givenSaleOf({u"1001"_s});
    loyalty->hookIn(
        control::EActionType::Total, ActionTrigger::Order::Before, [this](const control::Action &) {
            loyalty->calls.append(u"trigger"_s);
            return EContext::Result::Continue;
        });
    till->calculate();
    EXPECT_EQ(takeCalls(), QStringList{u"trigger"_s} + announcedRequest);
}

TEST_F(CalculationTest, AStoppedTotalAsksNothing)
{
    givenSaleOf({u"1001"_s});
    loyalty->hookIn(control::EActionType::Total, ActionTrigger::Order::Before,
        [](const control::Action &) { return EContext::Result::Stop; });
    EXPECT_EQ(till->calculate().result, QVariant(1));
    EXPECT_EQ(takeCalls(), QStringList());
}

TEST_F(CalculationTest, DiscountsListsMessagesAndPointsAreTakenOver)
{
    givenSaleOf({u"1002"_s});
    givenAnswer(u"request"_s, [this] {
        loyalty->giveDiscount(1, 10.0);
        loyalty->setMessageToCashier(u"Скидка"_s);
        loyalty->setAvailablePoints(55.0);
    });
    till->calculate();
    EXPECT_DOUBLE_EQ(toPay(), 90.0);
    EXPECT_EQ(copied().discountImpacts.size(), 1);
    EXPECT_EQ(copied().messagesToCashier, QStringList{u"Скидка"_s});
    EXPECT_DOUBLE_EQ(copied().pointsAvailable, 55.0);
}

TEST_F(CalculationTest, TheListsAreEmptyAndTheSumsUndiscountedWhenTheRequestIsMade)
{
    givenCalculatedSale({u"1002"_s}, 10.0);
    loyalty->givePoints(1, 5.0);
    loyalty->giveBonusRecord(3.0);
    double asked = 0.0;
    givenAnswer(u"request"_s, [&] {
        EXPECT_TRUE(loyalty->getDiscountImpacts().isEmpty());
        EXPECT_TRUE(loyalty->getBonusImpactsForSpend().isEmpty());
        EXPECT_TRUE(loyalty->getBonusRecords().isEmpty());
        asked = toPay();
    });
    till->calculate();
    EXPECT_DOUBLE_EQ(asked, 100.0);
    EXPECT_DOUBLE_EQ(toPay(), 100.0);
}

TEST_F(CalculationTest, MessagesAndPointsOfTheSystemSurviveTheEmptying)
{
    givenSaleOf({u"1002"_s});
    loyalty->setAvailablePoints(55.0);
    till->calculate();
    EXPECT_DOUBLE_EQ(copied().pointsAvailable, 55.0);
}

TEST_F(CalculationTest, ImpactsForUnknownPositionsAreListedAndChangeNoSum)
{
    givenSaleOf({u"1002"_s});
    givenAnswer(u"request"_s, [this] { loyalty->giveDiscount(9, 10.0); });
    till->calculate();
    EXPECT_DOUBLE_EQ(toPay(), 100.0);
    EXPECT_EQ(copied().discountImpacts.size(), 1);
}

TEST_F(CalculationTest, ARefusalIsToldAndStillFinishedAndTakenOver)
{
    givenSaleOf({u"1002"_s});
    loyalty->refuseWith(u"korvelRefused"_s, u"Отказ"_s, false);
    givenAnswer(false);
    const auto outcome = till->calculate();
    EXPECT_EQ(outcome.result, QVariant(false));
    EXPECT_EQ(outcome.refusal.value().message.ru(), u"Отказ"_s);
    EXPECT_EQ(takeCalls(), announcedRequest);
}

TEST_F(CalculationTest, AnExceptionIsFinishedWithEvent73AndTheSaleGoesOn)
{
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"request"_s] = []() -> bool { throw std::runtime_error("broken"); };
    const auto outcome = till->calculate();
    EXPECT_FALSE(outcome.result.isValid());
    EXPECT_TRUE(outcome.refusal);
    EXPECT_EQ(takeCalls(), announcedRequest);
    EXPECT_TRUE(till->close().left);
}

TEST_F(CalculationTest, TotalIsAnErrorOnAReturnAndAtAnEmptyDesk)
{
    EXPECT_TRUE(whyNot([&] { till->calculate(); }).startsWith(u"нет открытого документа"));
    till->openReturn();
    EXPECT_TRUE(whyNot([&] { till->calculate(); }).startsWith(u"возврат не рассчитывается"));
}

TEST_F(CalculationTest, TotalDropsPayments)
{
    givenSaleOf({u"1002"_s});
    till->pay(till::PaymentKind::Cash, 20.0);
    till->calculate();
    EXPECT_TRUE(document()->getPayments().isEmpty());
}

class SpendingTest : public CalculationTest
{
public:
    SpendingTest()
    {
        givenCalculatedSale({u"1002"_s}, 10.0);
        loyalty->setAvailablePoints(30.0);
    }
    void givenPointsTaken(double points)
    {
        givenAnswer(u"spendPoints"_s, [this, points] { loyalty->givePoints(1, points); });
    }
};

TEST_F(SpendingTest, PointsAreChosenThenAnnouncedThenSpent)
{
    till->payWithPoints(20.0);
    EXPECT_EQ(takeCalls(),
        (QStringList{u"setPointsForSpend"_s, u"event 72"_s, u"spendPoints"_s, u"event 73"_s}));
    EXPECT_DOUBLE_EQ(loyalty->chosenPoints(), 20.0);
}

TEST_F(SpendingTest, AnAmountIsNeverRounded)
{
    till->payWithPoints(20.00499);
    EXPECT_DOUBLE_EQ(loyalty->chosenPoints(), 20.00499);
}

TEST_F(SpendingTest, WithoutAnAmountNothingIsChosen)
{
    till->payWithPoints(20.0);
    till->payWithPoints(std::nullopt);
    EXPECT_DOUBLE_EQ(loyalty->chosenPoints(), 0.0);
}

TEST_F(SpendingTest, PointsLowerTheSumAndDiscountsStayApplied)
{
    givenAnswer(u"spendPoints"_s, [this] {
        loyalty->clearDiscountImpacts();
        loyalty->givePoints(1, 20.0);
    });
    till->payWithPoints(20.0);
    EXPECT_DOUBLE_EQ(toPay(), 70.0);
    EXPECT_TRUE(copied().discountImpacts.isEmpty());
    EXPECT_EQ(copied().bonusImpacts.size(), 1);
}

TEST_F(SpendingTest, ASecondPaymentReplacesTheFirst)
{
    givenPointsTaken(20.0);
    till->payWithPoints(20.0);
    double asked = 0.0;
    givenAnswer(u"spendPoints"_s, [&] {
        EXPECT_TRUE(loyalty->getBonusImpactsForSpend().isEmpty());
        asked = toPay();
        loyalty->givePoints(1, 5.0);
    });
    till->payWithPoints(5.0);
    EXPECT_DOUBLE_EQ(asked, 90.0);
    EXPECT_DOUBLE_EQ(toPay(), 85.0);
}

TEST_F(SpendingTest, ARefusedPaymentTakesNoPoints)
{
    loyalty->refuseWith(u"id"_s, u"Нет"_s, false);
    givenAnswer(
        u"spendPoints"_s, [] {}, false);
    EXPECT_TRUE(till->payWithPoints(20.0).refusal);
    EXPECT_DOUBLE_EQ(toPay(), 90.0);
}

TEST_F(SpendingTest, TotalGivesThePointsBack)
{
    givenPointsTaken(20.0);
    till->payWithPoints(20.0);
    till->calculate();
    EXPECT_DOUBLE_EQ(toPay(), 90.0);
}

TEST_F(SpendingTest, WithoutAvailablePointsNothingIsOfferedOrAsked)
{
    loyalty->setAvailablePoints(0.005);
    const auto outcome = till->payWithPoints(std::nullopt);
    EXPECT_EQ(outcome.notices.value(0).id(), u"tillPointsNotOffered"_s);
    EXPECT_FALSE(outcome.result.isValid());
    EXPECT_EQ(takeCalls(), QStringList());
}

TEST_F(SpendingTest, MoreThanIsAvailableIsRefusedByTheTill)
{
    const auto outcome = till->payWithPoints(30.01);
    EXPECT_EQ(outcome.notices.value(0).ru(),
        u"Нельзя оплатить баллами 30.01: доступно баллов 30.00, сумма чека 90.00"_s);
    EXPECT_FALSE(outcome.refusal);
    EXPECT_EQ(takeCalls(), QStringList());
}

TEST_F(SpendingTest, MoreThanTheChequesSumIsRefusedByTheTill)
{
    loyalty->setAvailablePoints(1000.0);
    EXPECT_EQ(till->payWithPoints(90.01).notices.size(), 1);
    EXPECT_TRUE(till->payWithPoints(90.0).notices.isEmpty());
}

TEST_F(SpendingTest, PointsPaidBeforeCountAsStillToBePaid)
{
    loyalty->setAvailablePoints(90.0);
    givenPointsTaken(80.0);
    till->payWithPoints(80.0);
    EXPECT_TRUE(till->payWithPoints(85.0).notices.isEmpty());
}

TEST_F(SpendingTest, ATriggerBeforeCanStopIt)
{
    loyalty->hookIn(control::EActionType::PayWithPoints, ActionTrigger::Order::Before,
        [](const control::Action &) { return EContext::Result::Refuse; });
    EXPECT_EQ(till->payWithPoints(20.0).result, QVariant(0));
    EXPECT_EQ(takeCalls(), QStringList());
}

TEST_F(SpendingTest, PointsAreAnErrorOnAReturn)
{
    till->cancel();
    till->openReturn();
    EXPECT_TRUE(
        whyNot([&] { till->payWithPoints({}); }).startsWith(u"возврат не оплачивается баллами"));
}

TEST_F(SpendingTest, WhatWasGrantedIsOnDisk)
{
    givenPointsTaken(20.0);
    till->payWithPoints(20.0);
    EXPECT_DOUBLE_EQ(store->loadOpen()->getSumAfterDiscounts(), 70.0);
    EXPECT_EQ(store->loadOpen()->getEffects().bonusImpacts.size(), 1);
}

} // namespace
