#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class Offline : public PluginFixture
{ };

TEST_F(Offline, GoingOfflineIsStoredAndSavedUnderTheDocumentsOwnName)
{
    givenCurrentDocument();
    plugin().setOfflineMode();
    thenSteps({u"setOfflineMode"_s, u"save 17"_s});
    EXPECT_TRUE(plugin().offlineMode);
    EXPECT_EQ(story().saved.first().value(u"offlineMode"_s), QVariant(true));
    EXPECT_EQ(story().savedFileNames, QStringList{QString()});
}

TEST_F(Offline, WithoutADocumentThereIsNothingToSave)
{
    plugin().setOfflineMode();
    EXPECT_TRUE(plugin().offlineMode);
    thenSteps({u"setOfflineMode"_s});
}

TEST_F(Offline, ANewObjectGoesOnOffline)
{
    givenCurrentDocument();
    plugin().setOfflineMode();
    KorvelLoyaltyOnline restarted;
    EXPECT_TRUE(restarted.restoreLoyaltySystem());
    auto card = makeCard(u"2900000000017"_s);
    EXPECT_TRUE(restarted.identifyByCard(card, ECardNumberType::Scanned));
    EXPECT_TRUE(client().requests.isEmpty());
}

TEST_F(Offline, RestoringTakesOverWhatTheDocumentHolds)
{
    givenCurrentDocument();
    givenStored(u"pointsForSpend"_s, 12.5);
    givenStored(u"notUseStickers"_s, true);
    givenStored(u"offlineMode"_s, true);
    EXPECT_TRUE(plugin().restoreLoyaltySystem());
    EXPECT_EQ(plugin().getPointsForSpend(document()), 12.5);
    EXPECT_TRUE(plugin().notUseStickers);
    EXPECT_TRUE(plugin().offlineMode);
}

TEST_F(Offline, RestoringFromADocumentWithoutValuesClearsThem)
{
    givenCurrentDocument();
    plugin().m_pointsForSpend = 5.0;
    plugin().notUseStickers = true;
    plugin().offlineMode = true;
    EXPECT_TRUE(plugin().restoreLoyaltySystem());
    EXPECT_EQ(plugin().getPointsForSpend(document()), 0.0);
    EXPECT_FALSE(plugin().notUseStickers);
    EXPECT_FALSE(plugin().offlineMode);
}

TEST_F(Offline, RestoringLeavesTheChosenPointsAlone)
{
    givenCurrentDocument();
    givenStored(u"pointsForSpend"_s, 12.5);
    plugin().setPointsForSpend(document(), 3.0);
    plugin().restoreLoyaltySystem();
    EXPECT_EQ(plugin().m_pointsToSpend, 3.0);
}

} // namespace
