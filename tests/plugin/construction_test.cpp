#include "tests/plugin/pluginfixture.h"
#include <log4qt/logmanager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class Construction : public PluginFixture
{ };

/// Remembers what was asked for, and the defaults that were named.
class RecordingConfig : public Config
{
public:
    QString getString(const QString &key, const QString &defaultValue) const override
    {
        asked.append(key + u" = "_s + defaultValue);
        return defaultValue;
    }
    int getInt(const QString &key, int defaultValue) const override
    {
        asked.append(key + u" = "_s + QString::number(defaultValue));
        return defaultValue;
    }
    bool getBool(const QString &key, bool defaultValue) const override
    {
        asked.append(key + (defaultValue ? u" = true"_s : u" = false"_s));
        return defaultValue;
    }
    double getDouble(const QString &key, double defaultValue) const override
    {
        asked.append(key + u" = "_s + QString::number(defaultValue));
        return defaultValue;
    }
    mutable QStringList asked;
};

TEST_F(Construction, WithoutSettingsTheMembersHoldTheirDefaults)
{
    EXPECT_FALSE(plugin().useConfirmation);
    EXPECT_EQ(plugin().noConfirmationBonusLimit, -1.0);
    EXPECT_EQ(plugin().stickersActionMarker, u"Interchange"_s);
    EXPECT_EQ(plugin().technicalCardPrefix, u"375"_s);
    EXPECT_EQ(plugin().technicalCardSuffixLength, 4);
    EXPECT_EQ(plugin().technicalCardName, u"Korvel Loyalty Online Technical"_s);
    EXPECT_EQ(plugin().markdownCouponPrefix, u"на уценку %1% № "_s);
    EXPECT_TRUE(plugin().allowChangeQuantityForMarkdownPositions);
}

TEST_F(Construction, APluginStartsWithoutChequeState)
{
    EXPECT_TRUE(plugin().couponsToPrint.isEmpty());
    EXPECT_FALSE(plugin().notUseStickers);
    EXPECT_FALSE(plugin().offlineMode);
    EXPECT_TRUE(plugin().lastMarkdownRawData.isEmpty());
}

TEST_F(Construction, SettingsReplaceTheDefaults)
{
    givenSetting(u"KorvelLoyaltyOnline:useConfirmation"_s, u"true"_s);
    givenSetting(u"KorvelLoyaltyOnline:noConfirmationBonusLimit"_s, u"100.5"_s);
    givenSetting(u"KorvelLoyaltyOnline:stickersActionMarker"_s, u"Swap"_s);
    givenSetting(u"KorvelLoyaltyOnline:allowChangeQuantityForMarkdownPositions"_s, u"false"_s);
    givenSetting(u"KorvelLoyaltyOnline:markdownCouponPrefix"_s, u"\"-%1: \""_s);
    EXPECT_TRUE(plugin().useConfirmation);
    EXPECT_EQ(plugin().noConfirmationBonusLimit, 100.5);
    EXPECT_EQ(plugin().stickersActionMarker, u"Swap"_s);
    EXPECT_FALSE(plugin().allowChangeQuantityForMarkdownPositions);
    EXPECT_TRUE(plugin().markdownCouponPrefix.contains(u"-%1:"_s));
}

TEST_F(Construction, TechnicalCardSettingsAreTakenAsTheyStand)
{
    givenSetting(u"KorvelLoyaltyOnline:technicalCardPrefix"_s, u""_s);
    givenSetting(u"KorvelLoyaltyOnline:technicalCardSuffixLength"_s, u"-3"_s);
    givenSetting(u"KorvelLoyaltyOnline:technicalCardName"_s, u"Гость"_s);
    EXPECT_EQ(plugin().technicalCardPrefix, QString());
    EXPECT_EQ(plugin().technicalCardSuffixLength, -3);
    EXPECT_EQ(plugin().technicalCardName, u"Гость"_s);
}

TEST_F(Construction, SettingsAreReadOnceInTheirOrderWithTheirDefaults)
{
    const auto config = QSharedPointer<RecordingConfig>::create();
    Singleton<Config>::set(config);
    plugin();
    const QStringList expected{u"KorvelLoyaltyOnline:useConfirmation = false"_s,
        u"KorvelLoyaltyOnline:noConfirmationBonusLimit = -1"_s,
        u"KorvelLoyaltyOnline:stickersActionMarker = Interchange"_s,
        u"KorvelLoyaltyOnline:technicalCardPrefix = 375"_s,
        u"KorvelLoyaltyOnline:technicalCardSuffixLength = 4"_s,
        u"KorvelLoyaltyOnline:technicalCardName = Korvel Loyalty Online Technical"_s,
        u"KorvelLoyaltyOnline:markdownCouponPrefix = на уценку %1% № "_s,
        u"KorvelLoyaltyOnline:allowChangeQuantityForMarkdownPositions = true"_s};
    EXPECT_EQ(config->asked.join(u'\n'), expected.join(u'\n'));
}

TEST_F(Construction, TheClientComesFromTheFactory)
{
    EXPECT_EQ(plugin().interface.data(), &client());
}

TEST_F(Construction, TheLoggerIsTheOneSharedWithTheClient)
{
    EXPECT_EQ(plugin().logger, Log4Qt::LogManager::logger(u"korvelonline"_s));
}

TEST_F(Construction, NameAndCardModeAreThoseOfTheOnlineLoyalty)
{
    EXPECT_EQ(plugin().getPluginName(), u"KorvelLoyaltyOnline"_s);
    EXPECT_EQ(plugin().getCardMode(), static_cast<ECardMode>(23));
}

TEST_F(Construction, TheFourOptionsOfTheSystemAreOn)
{
    for (const int option : {16, 64, 1024, 131072})
        EXPECT_TRUE(plugin().hasOption(static_cast<LoyaltySystemOption>(option))) << option;
    for (const int option : {1, 2, 4, 8, 32, 128, 256, 512, 2048, 65536})
        EXPECT_FALSE(plugin().hasOption(static_cast<LoyaltySystemOption>(option))) << option;
}

TEST_F(Construction, ClearingForgetsTheChequeAndKeepsTheSettings)
{
    plugin().couponsToPrint = {Map{}};
    plugin().notUseStickers = true;
    plugin().offlineMode = true;
    plugin().m_pointsForSpend = 5.0;
    plugin().clearLoyaltyData();
    EXPECT_TRUE(plugin().couponsToPrint.isEmpty());
    EXPECT_FALSE(plugin().notUseStickers);
    EXPECT_FALSE(plugin().offlineMode);
    EXPECT_EQ(plugin().getPointsForSpend({}), 0.0);
    EXPECT_EQ(plugin().technicalCardPrefix, u"375"_s);
}

} // namespace
