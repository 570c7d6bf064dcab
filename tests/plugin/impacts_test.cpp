#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class Impacts : public PluginFixture
{
protected:
    Impacts() { givenSaleWithCard(); }
    static Map discounted(double summ, double discount, double summDiscounted)
    {
        return {
            {key::summ, summ}, {key::discount, discount}, {key::summDiscounted, summDiscounted}};
    }
    void whenDiscountsFilled(const Map &positions)
    {
        plugin().fillDiscountImpacts({{key::positions, positions}});
    }
    void whenPointsFilled(const Map &positions)
    {
        plugin().fillBonusImpacts({{key::positions, positions}});
    }
    QSharedPointer<DocumentImpactDetail> discount(qsizetype index = 0)
    {
        return plugin().getDiscountImpacts().at(index)->getDetail();
    }
    const BonusImpact &payment(qsizetype index = 0)
    {
        return *plugin().getBonusImpactsForSpend().at(index);
    }
};

TEST_F(Impacts, ADiscountCarriesRateAndSumOfItsPosition)
{
    whenDiscountsFilled({{u"3"_s, discounted(100.0, 12.5, 87.25)}});
    EXPECT_EQ(discount()->getPosition(), 3);
    EXPECT_EQ(discount()->getDiscountRate(), QVariant(12.5));
    EXPECT_DOUBLE_EQ(discount()->getDiscountSum(), 12.75);
    EXPECT_EQ(discount()->getDiscountName(), u"Скидка Korvel Loyalty Online"_s);
    EXPECT_EQ(discount()->getDateTime(), now());
}

TEST_F(Impacts, ADiscountHasTheCodesOfAnAutomaticPercentageWithoutACard)
{
    whenDiscountsFilled({{u"1"_s, discounted(10.0, 1.0, 9.0)}});
    EXPECT_EQ(static_cast<int>(discount()->getImpactSource()), 2);
    EXPECT_EQ(static_cast<int>(discount()->getDiscountObject()), 1);
    EXPECT_EQ(static_cast<int>(discount()->getDiscountMode()), 2);
    EXPECT_EQ(static_cast<int>(discount()->getDiscountType()), 1);
    EXPECT_TRUE(discount()->isMinPriceIgnored());
    EXPECT_EQ(discount()->getCardRecord(), nullptr);
    EXPECT_FALSE(discount()->getCardIndex().isValid());
}

TEST_F(Impacts, APositionWithoutDiscountGetsAnImpactOfNothing)
{
    whenDiscountsFilled({{u"1"_s, discounted(10.0, 0.0, 10.0)}});
    EXPECT_EQ(discount()->getDiscountSum(), 0.0);
    EXPECT_EQ(discount()->getDiscountName(), u"Скидка Korvel Loyalty Online"_s);
}

TEST_F(Impacts, MissingFiguresCountAsNothing)
{
    whenDiscountsFilled({{u"1"_s, Map{}}});
    EXPECT_EQ(discount()->getDiscountRate(), QVariant(0.0));
    EXPECT_EQ(discount()->getDiscountSum(), 0.0);
}

TEST_F(Impacts, PositionsAreWalkedAsTextsAndAppended)
{
    whenDiscountsFilled({{u"2"_s, Map{}}, {u"10"_s, Map{}}, {u"1"_s, Map{}}});
    ASSERT_EQ(plugin().getDiscountImpacts().size(), 3);
    EXPECT_EQ(discount(0)->getPosition(), 1);
    EXPECT_EQ(discount(1)->getPosition(), 10);
    EXPECT_EQ(discount(2)->getPosition(), 2);
    whenDiscountsFilled({{u"7"_s, Map{}}});
    EXPECT_EQ(plugin().getDiscountImpacts().size(), 4);
}

TEST_F(Impacts, AnAnswerWithoutPositionsGivesNone)
{
    plugin().fillDiscountImpacts({});
    plugin().fillBonusImpacts({});
    EXPECT_TRUE(plugin().getDiscountImpacts().isEmpty());
    EXPECT_TRUE(plugin().getBonusImpactsForSpend().isEmpty());
}

TEST_F(Impacts, KeysThatAreNoNumbersStandForPositionZero)
{
    for (const auto &number : {u"abc"_s, u"2147483648"_s, u"1.5"_s, u""_s}) {
        plugin().m_discountImpacts.clear();
        whenDiscountsFilled({{number, Map{}}});
        EXPECT_EQ(discount()->getPosition(), 0) << number.toStdString();
    }
}

TEST_F(Impacts, APaymentCarriesItsPointsThreeTimes)
{
    whenPointsFilled({{u"4"_s, Map{{key::writeoffBonus, 0.0051}}}});
    const auto detail = payment().getDetail();
    EXPECT_EQ(detail->getPosition(), 4);
    EXPECT_EQ(detail->getDiscountRate(), QVariant(0.0051));
    EXPECT_EQ(detail->getDiscountSum(), 0.0051);
    ASSERT_EQ(payment().getDetailsForPositions().size(), 1);
    EXPECT_EQ(payment().getDetailsForPositions().first().position, 4);
    EXPECT_EQ(payment().getDetailsForPositions().first().sum, 0.0051);
}

TEST_F(Impacts, APaymentHasTheCodesOfPointsAndNamesTheCard)
{
    whenPointsFilled({{u"1"_s, Map{{key::writeoffBonus, 2.0}}}});
    const auto detail = payment().getDetail();
    EXPECT_EQ(static_cast<int>(detail->getImpactSource()), 2);
    EXPECT_EQ(static_cast<int>(detail->getDiscountObject()), 1);
    EXPECT_EQ(static_cast<int>(detail->getDiscountMode()), 2);
    EXPECT_EQ(static_cast<int>(detail->getDiscountType()), 5);
    EXPECT_TRUE(detail->isMinPriceIgnored());
    EXPECT_EQ(detail->getDiscountName(), u"Баллы Korvel Loyalty Online"_s);
    EXPECT_EQ(detail->getDateTime(), now());
    EXPECT_EQ(detail->getCardRecord(), plugin().getCard());
    EXPECT_EQ(detail->getCardIndex(), QVariant(1));
}

TEST_F(Impacts, PointsAtTheToleranceAreNoPayment)
{
    whenPointsFilled({{u"1"_s, Map{{key::writeoffBonus, 0.005}}}, {u"2"_s, Map{}}});
    EXPECT_TRUE(plugin().getBonusImpactsForSpend().isEmpty());
}

} // namespace
