#include "plugin/stickeractions.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class StickerActions : public PluginFixture
{
protected:
    StickerActions() { givenCurrentDocument(); }
    static Map position(const Map &attributes)
    {
        return {{key::summ, 10.0}, {key::extendedAttributes, attributes}};
    }
    static Map answer()
    {
        return {{key::positions,
            Map{{u"1"_s, position({{u"xInterchange1"_s, u"{}"_s}, {u"color"_s, u"red"_s}})},
                {u"2"_s, position({{u"Interchange"_s, u"{}"_s}})}}}};
    }
    void whenRemoved(const QSet<QString> &positions)
    {
        plugin().removeStickersActions(answer(), positions);
    }
    Map storedPosition(const QString &number)
    {
        return stored(korvel::plugindata::positionsData).toMap().value(number).toMap();
    }
};

TEST_F(StickerActions, AnEmptySetStandsForAllPositions)
{
    whenRemoved({});
    EXPECT_EQ(storedPosition(u"1"_s), position({{u"color"_s, u"red"_s}}));
    EXPECT_EQ(storedPosition(u"2"_s), (Map{{key::summ, 10.0}}));
}

TEST_F(StickerActions, OnlyTheNamedPositionsLoseTheirActions)
{
    whenRemoved({u"2"_s});
    EXPECT_EQ(
        storedPosition(u"1"_s), position({{u"xInterchange1"_s, u"{}"_s}, {u"color"_s, u"red"_s}}));
    EXPECT_EQ(storedPosition(u"2"_s), (Map{{key::summ, 10.0}}));
}

TEST_F(StickerActions, TheMarkerIsTheConfiguredOneInItsOwnCase)
{
    plugin().stickersActionMarker = u"interchange"_s;
    whenRemoved({});
    EXPECT_EQ(storedPosition(u"2"_s), position({{u"Interchange"_s, u"{}"_s}}));
    plugin().stickersActionMarker = u"color"_s;
    whenRemoved({});
    EXPECT_EQ(storedPosition(u"1"_s), position({{u"xInterchange1"_s, u"{}"_s}}));
}

TEST_F(StickerActions, AnEmptyMapOfAttributesGoesWhateverTheSet)
{
    plugin().removeStickersActions({{key::positions, Map{{u"1"_s, position({})}}}}, {u"2"_s});
    EXPECT_EQ(storedPosition(u"1"_s), (Map{{key::summ, 10.0}}));
}

TEST_F(StickerActions, AnEmptyAnswerEmptiesThePositionsKept)
{
    givenStored(korvel::plugindata::positionsData, Map{{u"1"_s, Map{}}});
    plugin().removeStickersActions({}, {});
    EXPECT_EQ(stored(korvel::plugindata::positionsData), QVariant(Map()));
}

TEST(StickerActionRules, TheGivenPositionsStayAsTheyAre)
{
    const QMap<QString, QVariant> positions{{u"1"_s,
        QMap<QString, QVariant>{
            {key::extendedAttributes, QMap<QString, QVariant>{{u"Interchange"_s, 1}}}}}};
    const auto before = positions;
    const auto kept = stickeractions::removed(positions, {}, u"Interchange"_s);
    EXPECT_EQ(positions, before);
    EXPECT_NE(kept, before);
}

} // namespace
