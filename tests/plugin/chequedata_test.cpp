#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class ChequeData : public PluginFixture
{
protected:
    ChequeData() { givenCurrentDocument(); }
    void givenChequeData(const Map &data) { givenStored(korvel::plugindata::chequeData, data); }
};

TEST_F(ChequeData, TotalsAreKeptAsTheyCome)
{
    plugin().fillChequeData(
        {{key::summ, 10.0}, {key::discount, u"1"_s}, {key::summDiscounted, 9.0}, {u"x"_s, 1}});
    EXPECT_EQ(chequeData(),
        (Map{{key::summ, 10.0}, {key::discount, u"1"_s}, {key::summDiscounted, 9.0}}));
}

TEST_F(ChequeData, AMissingTotalIsKeptAsNothing)
{
    givenChequeData({{key::summ, 10.0}});
    plugin().fillChequeData({});
    for (const auto &name : {key::summ, key::discount, key::summDiscounted}) {
        EXPECT_TRUE(chequeData().contains(name));
        EXPECT_FALSE(chequeData().value(name).isValid());
    }
}

TEST_F(ChequeData, OtherEntriesStay)
{
    givenChequeData({{key::paidByBonus, 3.0}});
    plugin().fillChequeData({{key::summ, 10.0}});
    EXPECT_EQ(chequeData().value(key::paidByBonus), QVariant(3.0));
}

TEST_F(ChequeData, AttributesOfTheAnswerReplaceThoseKept)
{
    givenChequeData({{key::extendedAttributes, Map{{u"a"_s, u"1"_s}}}});
    plugin().fillChequeData({{key::extendedAttributes, Map{{u"b"_s, u"2"_s}}}});
    EXPECT_EQ(chequeData().value(key::extendedAttributes).toMap(), (Map{{u"b"_s, u"2"_s}}));
}

TEST_F(ChequeData, AnAnswerWithoutAttributesLeavesThoseKept)
{
    givenChequeData({{key::extendedAttributes, Map{{u"a"_s, u"1"_s}}}});
    plugin().fillChequeData({});
    EXPECT_EQ(chequeData().value(key::extendedAttributes).toMap(), (Map{{u"a"_s, u"1"_s}}));
}

TEST_F(ChequeData, WithoutAttributesAnywhereThereIsNoEntry)
{
    plugin().fillChequeData({});
    EXPECT_FALSE(chequeData().contains(key::extendedAttributes));
}

TEST_F(ChequeData, PositionsReplaceThoseKept)
{
    givenStored(korvel::plugindata::positionsData, Map{{u"9"_s, Map{}}});
    const Map positions{{u"1"_s, Map{{key::summ, 5.0}}}};
    plugin().fillPositionsData({{key::positions, positions}});
    EXPECT_EQ(stored(korvel::plugindata::positionsData), QVariant(positions));
}

TEST_F(ChequeData, MissingPositionsAreKeptAsAnEmptyMap)
{
    givenStored(korvel::plugindata::positionsData, Map{{u"9"_s, Map{}}});
    plugin().fillPositionsData({});
    EXPECT_EQ(stored(korvel::plugindata::positionsData), QVariant(Map()));
}

TEST_F(ChequeData, CancellingTheUseOfPointsKeepsTheRest)
{
    givenChequeData({{key::paidByBonus, 3.0}, {key::summ, 10.0}});
    plugin().cancelBonusUsage();
    EXPECT_EQ(chequeData(), (Map{{key::paidByBonus, 0.0}, {key::summ, 10.0}}));
}

} // namespace
