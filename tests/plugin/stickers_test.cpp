#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;
namespace plugindata = korvel::plugindata;

class Stickers : public PluginFixture
{
protected:
    Stickers() { givenSaleWithCard(); }

    static QString offer(double balance, double promocoupons, int amount, double discount)
    {
        return uR"({"activebalance":%1,"promocoupons":%2,"amount":%3,"discount":%4})"_s.arg(balance)
            .arg(promocoupons)
            .arg(amount)
            .arg(discount);
    }
    static Map position(const Map &attributes) { return {{key::extendedAttributes, attributes}}; }
    static Map answer(const Map &positions) { return {{key::positions, positions}}; }
    /// Two positions with an offer each, of 6 stickers; the first brings 100, the second 90.
    static Map twoOffers(double balance)
    {
        return answer({{u"1"_s, position({{u"Interchange"_s, offer(balance, 3, 2, 50)}})},
            {u"2"_s, position({{u"Interchange"_s, offer(balance, 6, 1, 90)}})}});
    }
    /// The answer is calculated into the cheque and the customer answers the question.
    bool whenCalculated(const Map &result, bool accepted, const Map &second = {})
    {
        givenAnswer(result);
        givenAnswer(second);
        givenChoice(accepted);
        return plugin().request(document());
    }
    void whenSelected(const Map &result)
    {
        plugin().fillPositionsData(result);
        plugin().selectStickersActions(result);
    }
    /// The positions whose offers are still there.
    void thenOffersStayOn(const QStringList &numbers)
    {
        QStringList withOffers;
        const auto positions = stored(plugindata::positionsData).toMap();
        for (auto number = positions.cbegin(); number != positions.cend(); ++number)
            if (!number->toMap().value(key::extendedAttributes).toMap().isEmpty())
                withOffers.append(number.key());
        EXPECT_EQ(withOffers, numbers);
    }
};

TEST_F(Stickers, AnAcceptedExchangeGoesThroughEveryStepInOrder)
{
    EXPECT_TRUE(whenCalculated(twoOffers(10), true, {{key::discount, 5.0}}));
    thenSteps({u"sale Soft"_s, u"fillChequeData"_s, u"fillPositionsData"_s,
        u"interchangeStickers"_s, u"event 73"_s, u"choice korvelInterchangeStickers"_s,
        u"event 72"_s, u"removeStickersActions"_s, u"sale Soft"_s, u"fillDiscountImpacts"_s,
        u"fillChequeData"_s, u"fillPositionsData"_s, u"event 73"_s, u"event 72"_s, u"save 17"_s});
}

TEST_F(Stickers, ADeclinedExchangeGoesThroughEveryStepInOrder)
{
    EXPECT_TRUE(whenCalculated(twoOffers(10), false));
    thenSteps({u"sale Soft"_s, u"fillChequeData"_s, u"fillPositionsData"_s,
        u"interchangeStickers"_s, u"event 73"_s, u"choice korvelInterchangeStickers"_s,
        u"removeStickersActions"_s, u"event 72"_s, u"save 17"_s});
}

TEST_F(Stickers, TheQuestionAndItsAnswersAreTheCashiers)
{
    whenCalculated(twoOffers(10), false);
    ASSERT_EQ(story().choices.size(), 1);
    const auto &choice = story().choices.first();
    EXPECT_EQ(choice.question.id(), u"korvelInterchangeStickers"_s);
    EXPECT_EQ(choice.question.ru(), u"Использовать фишки?"_s);
    EXPECT_EQ(choice.accept.id(), u"dialogChoiceOk"_s);
    EXPECT_EQ(choice.accept.ru(), u"ОК"_s);
    EXPECT_EQ(choice.reject.id(), u"dialogChoiceCancel"_s);
    EXPECT_EQ(choice.reject.ru(), u"Отмена"_s);
}

TEST_F(Stickers, WithoutOffersNobodyIsAsked)
{
    whenCalculated(answer({{u"1"_s, position({{u"color"_s, u"red"_s}})}}), true);
    EXPECT_TRUE(story().choices.isEmpty());
    EXPECT_TRUE(story().events.isEmpty());
    EXPECT_EQ(client().requests.size(), 1);
}

TEST_F(Stickers, OffersAreFoundByTheMarkerInItsOwnCase)
{
    const auto named = [](const QString &name) {
        return answer({{u"1"_s, position({{u"a"_s, u""_s}})}, {u"2"_s, position({{name, u""_s}})}});
    };
    EXPECT_TRUE(plugin().hasStickersActions(named(u"Interchange"_s)));
    EXPECT_TRUE(plugin().hasStickersActions(named(u"xInterchange7"_s)));
    EXPECT_FALSE(plugin().hasStickersActions(named(u"interchange"_s)));
    plugin().stickersActionMarker = u"inter"_s;
    EXPECT_TRUE(plugin().hasStickersActions(named(u"interchange"_s)));
    EXPECT_FALSE(plugin().hasStickersActions({}));
}

TEST_F(Stickers, DecliningRemovesAllOffersAndIsRemembered)
{
    whenCalculated(twoOffers(100), false);
    thenOffersStayOn({});
    EXPECT_TRUE(plugin().notUseStickers);
    EXPECT_EQ(stored(plugindata::notUseStickers), QVariant(true));
    EXPECT_EQ(story().saved.last().value(plugindata::notUseStickers), QVariant(true));
    EXPECT_EQ(client().requests.size(), 1);
}

TEST_F(Stickers, AnEarlierRefusalNeitherStopsTheQuestionNorIsForgottenByAcceptance)
{
    plugin().notUseStickers = true;
    whenCalculated(twoOffers(10), true);
    EXPECT_EQ(story().choices.size(), 1);
    EXPECT_EQ(client().requests.size(), 2);
    EXPECT_TRUE(plugin().notUseStickers);
    EXPECT_FALSE(stored(plugindata::notUseStickers).isValid());
}

TEST_F(Stickers, TheSecondRequestIsMadeOfTheSameChequeWithTheChosenOffersOnly)
{
    whenCalculated(twoOffers(10), true);
    ASSERT_EQ(client().requests.size(), 2);
    EXPECT_EQ(client().requests[1].document, document());
    const auto sent = client().requests[1].positionsData;
    EXPECT_TRUE(sent.value(u"1"_s).toMap().contains(key::extendedAttributes));
    EXPECT_FALSE(sent.value(u"2"_s).toMap().contains(key::extendedAttributes));
}

TEST_F(Stickers, ABalanceForAllOffersSendsThemAllOnceMore)
{
    whenCalculated(twoOffers(12), true);
    ASSERT_EQ(client().requests.size(), 2);
    EXPECT_EQ(client().requests[1].positionsData, twoOffers(12).value(key::positions).toMap());
    EXPECT_FALSE(story().steps.contains(u"removeStickersActions"_s));
}

TEST_F(Stickers, TheNewAnswerReplacesTheOldOne)
{
    auto first = twoOffers(10);
    first.insert(key::discount, 3.0);
    first.insert(key::availablePayment, u"50"_s);
    const Map positions{{u"7"_s, Map{{key::discount, 5.0}}}};
    whenCalculated(first, true,
        {{key::discount, 5.0}, {key::availablePayment, u"40"_s}, {key::positions, positions}});
    ASSERT_EQ(plugin().m_discountImpacts.size(), 1);
    EXPECT_EQ(plugin().m_discountImpacts.first()->getDetail()->getPosition(), 7);
    EXPECT_EQ(stored(plugindata::positionsData), QVariant(positions));
    EXPECT_EQ(chequeData().value(key::discount), QVariant(5.0));
    EXPECT_EQ(stored(plugindata::pointsForSpend), QVariant(40.0));
}

TEST_F(Stickers, ANewAnswerWithoutDiscountLeavesNone)
{
    for (const double discount : {0.0, 0.005}) {
        auto first = twoOffers(10);
        first.insert(key::discount, 3.0);
        whenCalculated(first, true, {{key::discount, discount}});
        EXPECT_TRUE(plugin().m_discountImpacts.isEmpty());
    }
}

TEST_F(Stickers, ADiscountJustOverTheToleranceCounts)
{
    whenCalculated(
        twoOffers(10), true, {{key::discount, 0.0051}, {key::positions, Map{{u"1"_s, Map()}}}});
    EXPECT_EQ(plugin().m_discountImpacts.size(), 1);
}

TEST_F(Stickers, ALostConnectionAtTheSecondRequestGoesOffline)
{
    givenAnswer(twoOffers(10));
    givenFailure<KorvelNoConnectionException>(u"нет связи"_s);
    EXPECT_TRUE(plugin().request(document()));
    EXPECT_TRUE(plugin().offlineMode);
    EXPECT_EQ(stored(plugindata::positionsData), QVariant(Map()));
    EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
    thenDialog(u"korvelNoConnection"_s,
        u"Нет связи с сервером. Возможные операции с баллами будут выполнены позднее"_s);
}

TEST_F(Stickers, AnInternalErrorAtTheSecondRequestGoesOffline)
{
    givenAnswer(twoOffers(10));
    givenFailure<KorvelInternalErrorException>(u"сбой"_s);
    EXPECT_TRUE(plugin().request(document()));
    EXPECT_TRUE(plugin().offlineMode);
    thenDialog(u"korvelOnlineInternalError"_s, u"Нет связи с лояльностью"_s);
}

TEST_F(Stickers, ARefusalOfTheSecondRequestIsTheLastError)
{
    givenAnswer(twoOffers(10));
    givenFailure<KorvelException>(u"Чек отклонён"_s);
    EXPECT_FALSE(plugin().request(document()));
    thenLastError(u"Чек отклонён"_s);
    EXPECT_FALSE(plugin().offlineMode);
}

TEST_F(Stickers, ALaterAnswerWithOffersAsksAgain)
{
    whenCalculated(twoOffers(10), true);
    whenCalculated(twoOffers(10), true);
    EXPECT_EQ(story().choices.size(), 2);
}

TEST_F(Stickers, TheMostProfitableOfferThatTheBalancePaysForStays)
{
    whenSelected(twoOffers(10));
    thenOffersStayOn({u"1"_s});
}

TEST_F(Stickers, ABalanceForAllKeepsAll)
{
    whenSelected(twoOffers(12));
    thenOffersStayOn({u"1"_s, u"2"_s});
}

TEST_F(Stickers, AFractionOfTheBalanceDoesNotPay)
{
    const auto withCost = [](int cost) {
        return answer({{u"1"_s, position({{u"Interchange"_s, offer(9.9, cost, 1, 5)}})},
            {u"2"_s, position({{u"Interchange"_s, offer(9.9, 50, 1, 5)}})}});
    };
    whenSelected(withCost(9));
    thenOffersStayOn({u"1"_s});
    whenSelected(withCost(10));
    thenOffersStayOn({});
}

TEST_F(Stickers, WhatIsNeededIsComparedWithTheBalanceWithinTheTolerance)
{
    const auto with = [](double needed) {
        return answer({{u"1"_s, position({{u"Interchange"_s, offer(0, needed, 1, 0)}})}});
    };
    whenSelected(with(0.005));
    thenOffersStayOn({u"1"_s});
    whenSelected(with(0.0051));
    thenOffersStayOn({});
}

TEST_F(Stickers, TheFirstBalanceThatIsNotNothingCounts)
{
    whenSelected(answer({{u"1"_s, position({{u"Interchange"_s, offer(0.004, 6, 1, 5)}})},
        {u"2"_s, position({{u"Interchange"_s, offer(6, 6, 1, 100)}})},
        {u"3"_s, position({{u"Interchange"_s, offer(100, 6, 1, 50)}})}}));
    thenOffersStayOn({u"2"_s});
}

TEST_F(Stickers, WithoutABalanceNoOfferStays)
{
    whenSelected(twoOffers(0));
    thenOffersStayOn({});
    whenSelected(twoOffers(-5));
    thenOffersStayOn({});
}

TEST_F(Stickers, FractionalStickersCountInTheBalanceTestButNotInTheChoice)
{
    // 2 times 5.4 stickers exceed the balance of 10, 2 times 5 do not: all are chosen, and the
    // empty set that this leaves stands for all positions.
    whenSelected(answer({{u"1"_s, position({{u"Interchange"_s, offer(10, 5.4, 1, 5)}})},
        {u"2"_s, position({{u"Interchange"_s, offer(10, 5.4, 1, 5)}})}}));
    thenOffersStayOn({});
}

TEST_F(Stickers, TwoOffersOfAPositionOfWhichOneIsChosenBothGo)
{
    whenSelected(answer({{u"1"_s,
        position({{u"Interchange1"_s, offer(10, 6, 1, 90)},
            {u"Interchange2"_s, offer(10, 6, 1, 50)}})}}));
    thenOffersStayOn({});
}

TEST_F(Stickers, AnOfferThatCannotBeReadCostsAndBringsNothing)
{
    auto unreadable = twoOffers(12).value(key::positions).toMap();
    for (const QString &text : {u"{"_s, u"[1]"_s, QString()}) {
        unreadable.insert(u"0"_s, position({{u"Interchange"_s, text}}));
        whenSelected(answer(unreadable));
        thenOffersStayOn({u"0"_s, u"1"_s, u"2"_s});
    }
}

TEST_F(Stickers, ThePositionThatCarriesAnOfferIsNotWhatTheServiceSays)
{
    auto named = twoOffers(10).value(key::positions).toMap();
    named.insert(u"2"_s,
        position({{u"Interchange"_s,
            u"{\"position\":\"1\",\"activebalance\":10,\"promocoupons\":6,\"amount\":1}"_s}}));
    whenSelected(answer(named));
    thenOffersStayOn({u"1"_s});
}

TEST_F(Stickers, OffersThatCostTheSameStayInTheOrderOfThePositions)
{
    Map positions;
    for (const auto &number : {u"2"_s, u"10"_s, u"1"_s})
        positions.insert(number, position({{u"Interchange"_s, offer(5, 5, 1, 10)}}));
    whenSelected(answer(positions));
    thenOffersStayOn({u"1"_s});
}

TEST_F(Stickers, AListOfActionsIsSortedInItsPlace)
{
    QList<QVariant> actions{
        Map{{u"discount"_s, 1.0}, {u"amount"_s, 1}}, Map{{u"discount"_s, 2.0}, {u"amount"_s, 1}}};
    plugin().selectMostProfitableStickersActions({}, actions, 0);
    EXPECT_EQ(actions.first().toMap().value(u"discount"_s), QVariant(2.0));
}

TEST_F(Stickers, AChoiceThatIsTooLargeIsLogged)
{
    QList<QVariant> actions{
        Map{{u"discount"_s, u"inf"_s}, {u"amount"_s, 1}, {u"promocoupons"_s, 1}}};
    plugin().selectMostProfitableStickersActions({}, actions, 1'500'000'000);
    thenLogged(u"WARN"_s,
        u"Слишком большой выбор: акций 1, фишек 1500000000. Акции взяты по порядку выгоды"_s);
}

} // namespace
