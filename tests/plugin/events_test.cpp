#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class Events : public PluginFixture
{
protected:
    void givenChequeState(bool offline)
    {
        plugin().couponsToPrint = {Map{{korvel::result::couponNumber, u"5"_s}}};
        plugin().offlineMode = offline;
        plugin().notUseStickers = true;
    }
    void whenSent(int code) { plugin().handleEvent(Event(EActivityListener::Event(code))); }
    void thenStateIsKept()
    {
        EXPECT_EQ(plugin().couponsToPrint.size(), 1);
        EXPECT_TRUE(plugin().notUseStickers);
        thenNothingHappened();
    }
};

TEST_F(Events, AnOnlineChequeThatClosesPrintsItsCouponsAndEndsItsState)
{
    givenSaleWithCard();
    givenChequeState(false);
    whenSent(10);
    thenSteps({u"print korvelloyaltyonline_coupon"_s, u"clearLoyaltyData"_s});
    EXPECT_TRUE(plugin().couponsToPrint.isEmpty());
}

TEST_F(Events, AnOfflineChequeThatClosesIsQueuedBetweenPrintingAndClearing)
{
    givenSaleWithCard();
    givenChequeState(true);
    whenSent(10);
    thenSteps({u"print korvelloyaltyonline_coupon"_s, u"process 6"_s, u"queue sale"_s,
        u"clearLoyaltyData"_s});
}

TEST_F(Events, WhatIsQueuedIsAProcessedCopyOfTheCheque)
{
    givenSaleWithCard();
    const auto position = givenPosition(u"1001"_s, 10.0, 2.0);
    position->setSumn(0.0);
    givenChequeState(true);
    whenSent(10);
    const auto queued = client().requests.first().document;
    EXPECT_NE(queued, document());
    EXPECT_EQ(queued->getNumber(), document()->getNumber());
    EXPECT_EQ(queued->getSumBeforeDiscounts(), 20.0);
    EXPECT_EQ(position->getSumn(), 0.0);
}

TEST_F(Events, AClosedChequeWithoutOurCardKeepsTheState)
{
    givenCurrentDocument();
    givenChequeState(true);
    whenSent(10);
    thenStateIsKept();
}

TEST_F(Events, AClosedChequeWithAnotherSystemsCardKeepsTheState)
{
    givenCurrentDocument();
    document()->addCardRecord(
        QSharedPointer<DocumentCardRecord>::create(QSharedPointer<Card>::create()));
    givenChequeState(true);
    whenSent(10);
    thenStateIsKept();
}

TEST_F(Events, AClosedReturnKeepsTheState)
{
    for (const auto type : {EDocumentType::ReturnOfSale, EDocumentType::ReturnWithoutSale}) {
        givenCurrentDocument(type);
        givenCard();
        givenChequeState(true);
        whenSent(10);
        thenStateIsKept();
    }
}

TEST_F(Events, AClosedChequeThatIsNoLongerThereKeepsTheState)
{
    givenChequeState(true);
    whenSent(10);
    thenStateIsKept();
}

TEST_F(Events, CancellingAndLeavingEndTheStateWhateverTheDocument)
{
    for (const int code : {12, 22}) {
        givenChequeState(true);
        whenSent(code);
        EXPECT_FALSE(plugin().offlineMode) << code;
        EXPECT_TRUE(plugin().couponsToPrint.isEmpty()) << code;
    }
    thenSteps({u"clearLoyaltyData"_s, u"clearLoyaltyData"_s});
}

TEST_F(Events, OtherEventsChangeNothing)
{
    givenSaleWithCard();
    givenChequeState(true);
    for (const int code : {72, 73, 253, 11})
        whenSent(code);
    thenStateIsKept();
}

TEST_F(Events, AnErrorOfTheQueueReachesTheHostAndKeepsTheState)
{
    givenSaleWithCard();
    givenChequeState(true);
    givenThrown(BasicException(tr::Tr(tr::undefined, u"диск полон"_s)));
    EXPECT_THROW(whenSent(10), BasicException);
    EXPECT_EQ(plugin().couponsToPrint.size(), 1);
    EXPECT_TRUE(plugin().offlineMode);
}

TEST_F(Events, TheStartEventSaysWhatTheCashierWaitsFor)
{
    plugin().sendStartEvent();
    thenSteps({u"event 72"_s});
    const auto message = story().events.first().getArguments().value(u"message"_s).value<tr::Tr>();
    EXPECT_EQ(message.id(), u"processLoyaltyMessage"_s);
    EXPECT_EQ(message.ru(), u"Обращение к системе лояльности"_s);
}

TEST_F(Events, TheStopEventHasNoArguments)
{
    plugin().sendStopEvent();
    thenSteps({u"event 73"_s});
    EXPECT_TRUE(story().events.first().getArguments().isEmpty());
}

} // namespace
