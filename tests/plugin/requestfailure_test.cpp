#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class CalculationFailure : public PluginFixture
{
protected:
    CalculationFailure()
    {
        givenSaleWithCard();
        plugin().m_pointsForSpend = 50.0;
    }
    bool whenCalculated() { return plugin().request(document()); }
    void thenOffline()
    {
        EXPECT_TRUE(plugin().offlineMode);
        EXPECT_EQ(stored(korvel::plugindata::offlineMode), QVariant(true));
        EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
        EXPECT_EQ(chequeData().value(key::paidByBonus), QVariant(0.0));
    }
};

TEST_F(CalculationFailure, AnInternalErrorTakesEverythingOffAndGoesOffline)
{
    givenFailure<KorvelInternalErrorException>(u"сбой службы"_s);
    EXPECT_TRUE(whenCalculated());
    thenSteps({u"sale Soft"_s, u"dialog korvelOnlineInternalError"_s, u"rollback operation"_s,
        u"save 17"_s, u"clearLoyaltyData"_s, u"cancel operation"_s, u"process 2"_s,
        u"setOfflineMode"_s, u"save 17"_s});
    thenDialog(u"korvelOnlineInternalError"_s, u"Нет связи с лояльностью"_s);
    thenLogged(u"ERROR"_s, u"сбой службы"_s);
    thenLogged(u"INFO"_s, u"Удаление внешних скидок"_s);
    thenOffline();
}

TEST_F(CalculationFailure, AnInternalErrorWithCouponsShowsOnlyTheCouponMessage)
{
    givenCoupon(u"A"_s);
    givenCoupon(u"B"_s);
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    whenCalculated();
    thenDialog(u"korvelOnlineInternalErrorBackCoupon"_s,
        u"Нет связи с лояльностью. Верните покупателю купоны: A\nB"_s);
    EXPECT_FALSE(document()->hasCoupons());
    EXPECT_EQ(story().steps[1], u"removeCoupons"_s);
}

TEST_F(CalculationFailure, AnInternalErrorForgetsTheStoredPositions)
{
    givenStored(korvel::plugindata::positionsData, Map{{u"1"_s, Map{}}});
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    whenCalculated();
    EXPECT_FALSE(stored(korvel::plugindata::positionsData).isValid());
}

TEST_F(CalculationFailure, AnInternalErrorLeavesNoPointsEvenWhenTheRegistrationCannotBeUndone)
{
    plugin().getCard()->setOperationId(u"T1"_s);
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    givenFailure<KorvelInternalErrorException>(u"снова сбой"_s);
    EXPECT_TRUE(whenCalculated());
    thenOffline();
}

TEST_F(CalculationFailure, ALostConnectionGoesOfflineAndKeepsTheDiscounts)
{
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    EXPECT_TRUE(whenCalculated());
    thenSteps({u"sale Soft"_s, u"removeStickersActions"_s, u"dialog korvelNoConnection"_s,
        u"setOfflineMode"_s, u"save 17"_s});
    thenOffline();
}

TEST_F(CalculationFailure, ALostConnectionWithCouponsShowsOnlyTheCouponMessage)
{
    givenCoupon(u"A"_s);
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    whenCalculated();
    thenSteps({u"sale Soft"_s, u"removeStickersActions"_s, u"removeCoupons"_s,
        u"dialog korvelOnlineInternalErrorBackCoupon"_s, u"setOfflineMode"_s, u"save 17"_s});
    EXPECT_FALSE(document()->hasCoupons());
}

TEST_F(CalculationFailure, ALostConnectionEmptiesTheStoredPositions)
{
    givenStored(korvel::plugindata::positionsData, Map{{u"1"_s, Map{}}});
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    whenCalculated();
    EXPECT_TRUE(stored(korvel::plugindata::positionsData).isValid());
    EXPECT_TRUE(stored(korvel::plugindata::positionsData).toMap().isEmpty());
}

TEST_F(CalculationFailure, ALostConnectionForgetsThePaymentWithPointsBeforeTheCashierReads)
{
    givenStored(korvel::plugindata::chequeData, Map{{key::paidByBonus, 3.0}, {key::summ, 9.0}});
    givenWhileShown([this] {
        EXPECT_EQ(chequeData(), (Map{{key::paidByBonus, 0.0}, {key::summ, 9.0}}));
        EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
    });
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    whenCalculated();
    EXPECT_EQ(story().dialogs.size(), 1);
}

TEST_F(CalculationFailure, AFailureOfTheExchangeOfStickersGoesOfflineToo)
{
    plugin().exchange = [](Map &result) {
        result.clear();
        throw KorvelNoConnectionException(tr::Tr(tr::undefined, u"нет связи"_s));
    };
    givenAnswer({{key::positions, Map{{u"1"_s, Map{}}}}});
    EXPECT_TRUE(whenCalculated());
    thenOffline();
    EXPECT_TRUE(stored(korvel::plugindata::positionsData).toMap().isEmpty());
}

TEST_F(CalculationFailure, ARefusalLeavesItsReasonAndTheCheque)
{
    givenFailure<KorvelException>(u"Чек отклонён"_s);
    EXPECT_FALSE(whenCalculated());
    thenSteps({u"sale Soft"_s});
    thenLastError(u"Чек отклонён"_s);
    EXPECT_EQ(plugin().getPointsForSpend(document()), 50.0);
}

TEST_F(CalculationFailure, ARefusalLeavesTheFlagBesideTheLastError)
{
    plugin().m_lastErrorFlag = true;
    givenFailure<KorvelException>(u"Чек отклонён"_s);
    whenCalculated();
    EXPECT_TRUE(plugin().getLastErrorFlag());
}

TEST_F(CalculationFailure, OtherExceptionsPassToTheHost)
{
    givenThrown(BasicException(tr::Tr(tr::undefined, u"касса"_s)));
    EXPECT_THROW(whenCalculated(), BasicException);
    EXPECT_FALSE(plugin().offlineMode);
}

TEST_F(CalculationFailure, CancellingExternalDiscountsTakesTheAppliedOnesOff)
{
    const auto position = givenPosition(u"1001"_s, 10.0);
    position->setAppliedDiscount(4.0);
    position->setAppliedQuantity(1.0);
    plugin().cancelExternalDiscount(document());
    thenSteps({u"rollback operation"_s, u"save 17"_s, u"clearLoyaltyData"_s, u"cancel operation"_s,
        u"process 2"_s});
    EXPECT_EQ(document()->getSumAfterDiscounts(), 10.0);
}

TEST_F(CalculationFailure, CancellingExternalDiscountsIgnoresARefusedRollback)
{
    plugin().getCard()->setOperationId(u"T1"_s);
    givenFailure<KorvelException>(u"нельзя"_s);
    plugin().cancelExternalDiscount(document());
    thenSteps({u"rollback operation"_s, u"rollback"_s, u"cancel operation"_s, u"process 2"_s});
}

/// Counts how often it is told to recalculate.
class CountingDocument : public AbstractDocument
{
public:
    using AbstractDocument::AbstractDocument;
    void recalculate() override { ++recalculations; }
    int recalculations = 0;
};

TEST_F(CalculationFailure, CancellingExternalDiscountsEndsWithTheDocumentRecalculatingItself)
{
    const auto counting = QSharedPointer<CountingDocument>::create(EDocumentType::Sale, u"17"_s);
    MockFactory<DiscountLogic>::create()->process(counting, EDiscountProcessing::RemoveLoyalty);
    const int ofTheDiscountLogic = counting->recalculations;
    plugin().cancelExternalDiscount(counting);
    EXPECT_EQ(counting->recalculations, 2 * ofTheDiscountLogic + 1);
}

TEST_F(CalculationFailure, NothingIsLeftToCancelOrToDoBeforePutout)
{
    EXPECT_TRUE(plugin().KorvelLoyaltyOnline::cancel());
    plugin().beforePutoutCheck();
    thenNothingHappened();
}

TEST_F(CalculationFailure, PuttingTheChequeOutEndsItsState)
{
    plugin().offlineMode = true;
    plugin().afterPutoutCheck();
    thenSteps({u"clearLoyaltyData"_s});
    EXPECT_FALSE(plugin().offlineMode);
}

} // namespace
