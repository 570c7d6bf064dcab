#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Calculation : public PluginFixture
{
protected:
    Calculation() { givenSaleWithCard(); }
    bool whenCalculated() { return plugin().request(document()); }
};

TEST_F(Calculation, AnAnswerWithDiscountAndCouponsGoesThroughEveryStepInOrder)
{
    givenCoupon(u"A"_s);
    givenAnswer({{key::discount, 5.0}});
    EXPECT_TRUE(whenCalculated());
    thenSteps({u"sale Soft"_s, u"fillDiscountImpacts"_s, u"fillChequeData"_s,
        u"fillPositionsData"_s, u"event 73"_s, u"dialog korvelReturnCoupons"_s, u"event 72"_s,
        u"interchangeStickers"_s, u"save 17"_s});
    thenLogged(u"INFO"_s, u"Запрос к бонусной системе"_s);
}

TEST_F(Calculation, TheChequeIsSentAsItIs)
{
    whenCalculated();
    ASSERT_EQ(client().requests.size(), 1);
    EXPECT_EQ(client().requests.first().document, document());
}

TEST_F(Calculation, OfflineNothingIsSentAndNothingTouched)
{
    plugin().offlineMode = true;
    givenCoupon(u"A"_s);
    EXPECT_TRUE(whenCalculated());
    thenNothingHappened();
    EXPECT_TRUE(document()->getStoredValues().isEmpty());
    EXPECT_TRUE(document()->hasCoupons());
    thenLogged(u"INFO"_s, u"Запрос к бонусной системе"_s);
}

TEST_F(Calculation, WithoutACardNothingIsSent)
{
    givenCurrentDocument();
    EXPECT_TRUE(whenCalculated());
    thenNothingHappened();
    thenLogged(u"INFO"_s, u"Запрос к бонусной системе"_s);
}

TEST_F(Calculation, WithoutConfirmationNoRecordIsSent)
{
    whenCalculated();
    EXPECT_EQ(client().requests.first().confirmation, nullptr);
}

TEST_F(Calculation, WithConfirmationAFreshEmptyRecordIsSentEachTime)
{
    plugin().useConfirmation = true;
    whenCalculated();
    whenCalculated();
    const auto first = client().requests[0].confirmation;
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, client().requests[1].confirmation);
    EXPECT_TRUE(*first == korvel::ConfirmationInfo());
}

TEST_F(Calculation, AvailablePointsGoToCardBaseAndDocument)
{
    givenAnswer({{key::availablePayment, u"42.50"_s}});
    whenCalculated();
    EXPECT_EQ(plugin().getCard()->getPointsForSpend(), 42.5);
    EXPECT_EQ(plugin().getPointsForSpend(document()), 42.5);
    EXPECT_EQ(stored(korvel::plugindata::pointsForSpend), QVariant(42.5));
}

TEST_F(Calculation, PointsThatAreNoNumberCountAsNone)
{
    plugin().m_pointsForSpend = 7.0;
    givenAnswer({{key::availablePayment, u"много"_s}});
    whenCalculated();
    EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
}

TEST_F(Calculation, ADiscountAtTheToleranceGivesNoImpacts)
{
    givenAnswer({{key::discount, 0.005}});
    whenCalculated();
    EXPECT_FALSE(story().steps.contains(u"fillDiscountImpacts"_s));
}

TEST_F(Calculation, ADiscountJustOverTheToleranceGivesImpacts)
{
    givenAnswer({{key::discount, 0.0051}});
    whenCalculated();
    EXPECT_TRUE(story().steps.contains(u"fillDiscountImpacts"_s));
}

TEST_F(Calculation, MessagesReplaceThoseOfTheLastAnswer)
{
    plugin().m_messagesToCashier = {u"старое"_s};
    plugin().m_messagesToClient = {u"старое"_s};
    givenAnswer({{key::cashierMessage, u"кассиру, раз"_s}, {key::chequeMessage, u"на чек"_s}});
    whenCalculated();
    EXPECT_EQ(plugin().getMessagesToCashier(), QStringList{u"кассиру, раз"_s});
    EXPECT_EQ(plugin().getMessagesToClient(), QStringList{u"на чек"_s});
}

TEST_F(Calculation, EachMissingMessageKeepsItsList)
{
    plugin().m_messagesToCashier = {u"кассиру"_s};
    plugin().m_messagesToClient = {u"на чек"_s};
    givenAnswer({{key::cashierMessage, QString()}});
    whenCalculated();
    EXPECT_EQ(plugin().getMessagesToCashier(), QStringList{u"кассиру"_s});
    EXPECT_EQ(plugin().getMessagesToClient(), QStringList{u"на чек"_s});
}

TEST_F(Calculation, ThePaymentWithPointsIsForgottenAndOtherChequeDataStays)
{
    givenStored(korvel::plugindata::chequeData, Map{{key::paidByBonus, 30.0}, {u"x"_s, 1}});
    givenAnswer({{key::summ, 100.0}});
    whenCalculated();
    EXPECT_EQ(chequeData().value(key::paidByBonus), QVariant(0.0));
    EXPECT_EQ(chequeData().value(key::summ), QVariant(100.0));
    EXPECT_EQ(chequeData().value(u"x"_s), QVariant(1));
}

TEST_F(Calculation, TheRequestStillCarriesTheStoredChequeData)
{
    givenStored(korvel::plugindata::chequeData, Map{{key::paidByBonus, 30.0}});
    whenCalculated();
    EXPECT_EQ(client().requests.first().chequeData.value(key::paidByBonus), QVariant(30.0));
}

TEST_F(Calculation, CouponsThatAreNotApplicableAreHandedBackInTheirOrder)
{
    for (const auto &number : {u"B"_s, u"keep"_s, u"A"_s, u"KEEP"_s})
        givenCoupon(number);
    givenAnswer({{key::applicableCoupons, QStringList{u"keep"_s}}});
    whenCalculated();
    thenDialog(
        u"korvelReturnCoupons"_s, u"Купоны неприменимы. Верните покупателю купоны:\nB\nA\nKEEP"_s);
    ASSERT_EQ(document()->getCoupons().size(), 1);
    EXPECT_EQ(document()->getCoupons().first()->getNumber(), u"keep"_s);
}

TEST_F(Calculation, CouponsAreGoneBeforeTheCashierReads)
{
    givenCoupon(u"A"_s);
    givenWhileShown([this] { EXPECT_FALSE(document()->hasCoupons()); });
    whenCalculated();
    EXPECT_EQ(story().dialogs.size(), 1);
}

TEST_F(Calculation, ApplicableCouponsStayWithoutAWord)
{
    givenCoupon(u"A"_s);
    givenAnswer({{key::applicableCoupons, QStringList{u"A"_s, u"B"_s}}});
    whenCalculated();
    EXPECT_TRUE(story().dialogs.isEmpty());
    EXPECT_TRUE(story().events.isEmpty());
    EXPECT_TRUE(document()->hasCoupons());
}

TEST_F(Calculation, WhatTheExchangeOfStickersAnswersIsWhatIsSaved)
{
    plugin().exchange = [this](Map &) { plugin().m_pointsForSpend = 9.0; };
    givenAnswer({{key::availablePayment, u"5"_s}});
    whenCalculated();
    EXPECT_EQ(story().saved.last().value(korvel::plugindata::pointsForSpend), QVariant(9.0));
}

TEST_F(Calculation, TheDocumentIsSavedUnderItsOwnName)
{
    whenCalculated();
    EXPECT_EQ(story().savedFileNames, QStringList{QString()});
}

} // namespace
