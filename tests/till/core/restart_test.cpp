// A till that was killed takes its document up again.

#include "host/framework/basicexception.h"
#include "host/net/restclient.h"
#include "host/storage/savetofilelogic.h"
#include "tests/support/scriptedserver.h"
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

// What a registration brings goes to disk with the closed cheque only: a till that is killed before
// asks for it again, and has everything that is still to be printed.
TEST_F(RestartTest, ARegistrationIsOnDiskAsBegunUntilTheChequeIsClosed)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    QList<bool> begun;
    QString id = u"none"_s;
    const auto look = [&] {
        const auto kept = store->loadOpen();
        begun.append(kept->isRegistrationBegun());
        id = kept->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId();
        return true;
    };
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this, look] {
        loyalty->presented->setOperationId(u"T-1"_s);
        return look();
    };
    loyalty->behaviour[u"afterPutoutCheck"_s] = look;
    const auto outcome = till->close();
    EXPECT_EQ(begun, (QList<bool>{true, true}));
    EXPECT_EQ(id, QString());
    EXPECT_FALSE(store->loadClosed(outcome.left->getNumber())->isRegistrationBegun());
}

TEST_F(RestartTest, ARefusedRegistrationIsOver)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"hasPointsForEarn"_s]
        = []() -> bool { throw BasicException(tr::Tr(u"id"_s, u"Нет"_s)); };
    till->close();
    EXPECT_FALSE(store->loadOpen()->isRegistrationBegun());
    EXPECT_EQ(whyNot([this] { till->changeQuantity(1, 2.0); }), QString());
}

TEST_F(RestartTest, AReturnIsOnDiskAsBegunUntilItIsClosed)
{
    givenIdentifiedCard();
    till->openReturnOf(givenClosedSale());
    QList<bool> begun;
    const auto look = [&] {
        begun.append(store->loadOpen()->isRegistrationBegun());
        return true;
    };
    loyalty->behaviour[u"commit"_s] = look;
    loyalty->behaviour[u"afterPutoutCheck"_s] = look;
    const auto outcome = till->close();
    EXPECT_EQ(begun, (QList<bool>{true, true}));
    EXPECT_FALSE(store->loadClosed(outcome.left->getNumber())->isRegistrationBegun());
}

TEST_F(RestartTest, ARefusedReturnIsOver)
{
    givenIdentifiedCard();
    till->openReturnOf(givenClosedSale());
    loyalty->behaviour[u"commit"_s] = [] { return false; };
    till->close();
    EXPECT_FALSE(store->loadOpen()->isRegistrationBegun());
    EXPECT_EQ(till->cancel().result, QVariant(true));
}

// There is nothing that the service could book.
TEST_F(RestartTest, AReturnWithoutACardIsNeverBegun)
{
    till->openReturn();
    till->addPosition({u"1001"_s, 1.0, {}, {}, {}});
    bool begun = true;
    loyalty->behaviour[u"commit"_s] = [&] {
        begun = till->document()->isRegistrationBegun();
        return true;
    };
    EXPECT_TRUE(till->close().left);
    EXPECT_FALSE(begun);
}

TEST_F(RestartTest, ABegunReturnCanOnlyBeClosed)
{
    givenIdentifiedCard();
    till->openReturnOf(givenClosedSale());
    till->document()->setRegistrationBegun(true);
    till->pay(till::PaymentKind::Card, std::nullopt);
    givenRestart();
    const QString reason = whyNot([this] { till->removePosition(1); });
    EXPECT_TRUE(reason.startsWith(u"касса остановилась, когда регистрировала"));
    EXPECT_TRUE(reason.endsWith(u"; закройте его")) << reason.toStdString();
    const auto outcome = till->cancel();
    ASSERT_EQ(outcome.notices.size(), 1);
    EXPECT_EQ(outcome.notices.constFirst().id(), u"tillReturnUnknown"_s);
    EXPECT_TRUE(till->close().left);
}

/// A till that was killed while it registered a cheque.
class BegunRegistrationTest : public RestartTest
{
public:
    BegunRegistrationTest()
    {
        givenIdentifiedCard();
        givenSaleOf({u"1002"_s});
        till->document()->setRegistrationBegun(true);
        till->pay(till::PaymentKind::Card, std::nullopt);
        givenRestart();
        takeCalls();
    }

    /// The registration is asked for again: an exchange with this status, and this id in its
    /// answer.
    void givenAnswer(int status, const QString &id)
    {
        loyalty->behaviour[u"hasPointsForEarn"_s] = [this, status, id] {
            ScriptedServer service;
            service.answer("<E/>", status);
            MockFactory<RestClient>::create()->post(service.url(), "<x/>", {});
            till->document()->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId(id);
            return true;
        };
    }
};

TEST_F(BegunRegistrationTest, TheChequeCannotBeChanged)
{
    EXPECT_TRUE(whyNot([this] {
        till->changeQuantity(1, 2.0);
    }).startsWith(u"касса остановилась, когда регистрировала"));
    EXPECT_TRUE(whyNot([this] { till->calculate(); }).startsWith(u"касса остановилась"));
}

TEST_F(BegunRegistrationTest, IsAskedForAgainWhenTheChequeIsClosed)
{
    givenAnswer(200, u"T-1"_s);
    EXPECT_TRUE(till->close().left);
    EXPECT_FALSE(till->document());
}

TEST_F(BegunRegistrationTest, IsAskedForAgainAndRolledBackWhenTheChequeIsCancelled)
{
    givenAnswer(200, u"T-1"_s);
    QString id;
    loyalty->behaviour[u"rollback"_s] = [this, &id] {
        id = till->document()->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId();
        return true;
    };
    const auto outcome = till->cancel();
    EXPECT_EQ(outcome.result, QVariant(true));
    EXPECT_EQ(id, u"T-1"_s);
    EXPECT_EQ(takeCalls(),
        (QStringList{u"event 72"_s, u"hasPointsForEarn"_s, u"event 73"_s, u"rollback"_s,
            u"event 12"_s, u"event 22"_s}));
}

TEST_F(BegunRegistrationTest, OfWhichNobodyKnowsKeepsTheChequeFromBeingCancelled)
{
    givenAnswer(503, {});
    for (int time = 0; time < 2; ++time) {
        const auto outcome = till->cancel();
        EXPECT_FALSE(outcome.result.isValid());
        ASSERT_EQ(outcome.notices.size(), 1);
        EXPECT_EQ(outcome.notices.constFirst().id(), u"tillRegistrationUnknown"_s);
        EXPECT_TRUE(store->loadOpen()->isRegistrationBegun());
    }
    EXPECT_FALSE(takeCalls().contains(u"rollback"));
}

TEST_F(BegunRegistrationTest, ThatIsRefusedNowIsToldAndThenTheChequeCanBeCancelled)
{
    loyalty->behaviour[u"hasPointsForEarn"_s]
        = []() -> bool { throw BasicException(tr::Tr(u"id"_s, u"Нет"_s)); };
    const auto refused = till->cancel();
    ASSERT_TRUE(refused.refusal);
    EXPECT_EQ(refused.refusal->message.ru(), u"Нет"_s);
    EXPECT_FALSE(store->loadOpen()->isRegistrationBegun());
    EXPECT_EQ(till->cancel().result, QVariant(true));
}

TEST_F(BegunRegistrationTest, OfAChequeThatWasOfflineIsNoneAndTheChequeCanBeCancelled)
{
    loyalty->behaviour[u"hasPointsForEarn"_s] = [] { return false; };
    EXPECT_EQ(till->cancel().result, QVariant(true));
    EXPECT_FALSE(till->document());
}

TEST_F(BegunRegistrationTest, OfWhichNobodyKnewIsNotForgottenByAPluginThatWentOffline)
{
    givenAnswer(503, {});
    till->cancel();
    loyalty->behaviour[u"hasPointsForEarn"_s] = [] { return false; };
    const auto outcome = till->cancel();
    EXPECT_FALSE(outcome.result.isValid());
    ASSERT_EQ(outcome.notices.size(), 1);
    EXPECT_EQ(outcome.notices.constFirst().id(), u"tillRegistrationUnknown"_s);
    givenRestart();
    EXPECT_FALSE(till->cancel().result.isValid());
    EXPECT_TRUE(till->close().left);
}

/// A registered cheque whose cancelling has failed, or was cut short.
class BegunRollbackTest : public RestartTest
{
public:
    BegunRollbackTest()
    {
        givenIdentifiedCard();
        givenSaleOf({u"1002"_s});
        loyalty->presented->setOperationId(u"T-1"_s);
        loyalty->behaviour[u"rollback"_s] = [this] {
            unknownOnDisk = store->loadOpen()->isBookingUnknown();
            return false;
        };
        till->cancel();
    }

    [[nodiscard]] QString operationId() const
    {
        return till->document()->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId();
    }

    bool unknownOnDisk = false; ///< while it was taken back
};

TEST_F(BegunRollbackTest, IsOnDiskBeforeItIsAskedFor)
{
    EXPECT_TRUE(unknownOnDisk);
    EXPECT_TRUE(store->loadOpen()->isBookingUnknown());
}

TEST_F(BegunRollbackTest, IsAskedForAgainByTheSameNumber)
{
    givenRestart();
    QString id;
    loyalty->behaviour[u"rollback"_s] = [&] {
        id = operationId();
        return true;
    };
    takeCalls();
    EXPECT_EQ(till->cancel().result, QVariant(true));
    EXPECT_EQ(id, u"T-1"_s);
    EXPECT_EQ(takeCalls(), (QStringList{u"rollback"_s, u"event 12"_s, u"event 22"_s}));
}

TEST_F(BegunRollbackTest, IsFollowedByANewRegistrationWhenTheChequeIsClosed)
{
    givenRestart();
    QString id = u"none"_s;
    loyalty->behaviour[u"hasPointsForEarn"_s] = [&] {
        id = operationId();
        return true;
    };
    EXPECT_TRUE(till->close().left);
    EXPECT_EQ(id, QString());
}

TEST_F(BegunRollbackTest, CanStillBeAskedForWhenTheNewRegistrationIsRefused)
{
    loyalty->behaviour[u"hasPointsForEarn"_s]
        = []() -> bool { throw BasicException(tr::Tr(u"id"_s, u"Нет"_s)); };
    till->close();
    EXPECT_EQ(operationId(), u"T-1"_s);
    EXPECT_TRUE(store->loadOpen()->isBookingUnknown());
}

TEST_F(BegunRollbackTest, IsOverWhenTheSaleIsRegisteredAnew)
{
    loyalty->behaviour[u"hasPointsForEarn"_s] = [this] {
        till->document()->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId(u"T-2"_s);
        return true;
    };
    EXPECT_FALSE(till->close().left->isBookingUnknown());
}

TEST_F(RestartTest, CancellingAChequeThatIsNotRegisteredLeavesNoDoubt)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    loyalty->behaviour[u"rollback"_s] = [] { return false; };
    till->cancel();
    EXPECT_FALSE(store->loadOpen()->isBookingUnknown());
}

TEST_F(RestartTest, ARegisteredChequeKeepsItsNumberWhenItIsClosed)
{
    givenIdentifiedCard();
    givenSaleOf({u"1002"_s});
    loyalty->presented->setOperationId(u"T-1"_s);
    const auto closed = till->close().left;
    EXPECT_EQ(closed->getCardRecord(ECardMode::OnlineLoyalty)->getOperationId(), u"T-1"_s);
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
    const auto closed = till->close().left;
    EXPECT_FALSE(keptInTheMiddle);
    EXPECT_TRUE(store->loadClosed(closed->getNumber())
                    ->getStoredValue(u"FakeLoyalty"_s, u"hasPointsForEarn"_s, {})
                    .toBool());
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
