#include "host/framework/basicloyaltysystem.h"
#include "host/framework/loyaltysystems.h"
#include "host/framework/session.h"
#include "tests/support/hostfixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;

namespace {

/// A loyalty system that does nothing beyond the base.
class System : public BasicLoyaltySystem
{
public:
    explicit System(const QString &name = u"System"_s)
    {
        setPluginName(name);
        m_cardMode = ECardMode::OnlineLoyalty;
    }
    bool init() override { return true; }

    using BasicLoyaltySystem::clearData;
    using BasicLoyaltySystem::distributeBonusRecord;
    using BasicLoyaltySystem::getCard;
    using BasicLoyaltySystem::getPluginData;
    using BasicLoyaltySystem::hasCard;
    using BasicLoyaltySystem::m_lastError;
    using BasicLoyaltySystem::m_pointsForEarn;
    using BasicLoyaltySystem::m_pointsForSpend;
    using BasicLoyaltySystem::m_pointsToSpend;
    using BasicLoyaltySystem::registerLoyaltySystem;
    using BasicLoyaltySystem::setOption;
    using BasicLoyaltySystem::setPluginData;
};

class BasicLoyaltySystemTest : public testing::Test, protected HostFixture
{
protected:
    void givenPositionWithSum(double sum, double discount = 0.0)
    {
        const auto position = givenPosition(u"1001"_s, sum);
        position->setAppliedDiscount(discount);
        position->setAppliedQuantity(1.0);
        position->recalculate();
    }
    QList<DocumentBonusRecord> distributed(double amount)
    {
        DocumentBonusRecord record;
        record.setCardNumber(u"29"_s);
        record.setAmount(amount);
        record.setCampaignName(u"Акция"_s);
        return m_system.distributeBonusRecord(document(), record);
    }
    static QStringList written(const QList<DocumentBonusRecord> &records)
    {
        QStringList texts;
        for (const DocumentBonusRecord &record : records)
            texts.append(u"%1: %2"_s.arg(
                record.getPosition().toString(), QString::number(record.getAmount(), 'f', 2)));
        return texts;
    }
    static LoyaltyEffects someEffects()
    {
        const auto detail = QSharedPointer<DocumentImpactDetail>::create();
        return {{QSharedPointer<DiscountImpact>::create(detail)},
            {QSharedPointer<BonusImpact>::create(detail)}, {DocumentBonusRecord()}, {u"a"_s},
            {u"b"_s}, 1.0, 2.0, 3.0};
    }

    System m_system;
};

TEST_F(BasicLoyaltySystemTest, FindsItsOwnCardOnTheCurrentDocument)
{
    givenCurrentDocument();
    const auto card = givenCard();

    EXPECT_EQ(m_system.getCard(), card);
    EXPECT_TRUE(m_system.hasCard());
}

TEST_F(BasicLoyaltySystemTest, FindsNoCardOfAnotherSystem)
{
    givenCurrentDocument();
    const auto card = makeCard(u"77"_s);
    card->getCard()->getCardGroup()->setCardMode(ECardMode::None);
    document()->addCardRecord(card);

    EXPECT_TRUE(m_system.getCard().isNull());
    EXPECT_FALSE(m_system.hasCard());
}

TEST_F(BasicLoyaltySystemTest, FindsNoCardWithoutADocument)
{
    EXPECT_TRUE(m_system.getCard().isNull());
    EXPECT_FALSE(m_system.hasCard());
}

TEST_F(BasicLoyaltySystemTest, KeepsValuesOnTheDocumentUnderItsName)
{
    givenCurrentDocument();
    m_system.setPluginData(u"k"_s, 5);

    EXPECT_EQ(m_system.getPluginData(u"k"_s, 1), 5);
    EXPECT_EQ(m_system.getPluginData(u"none"_s, 1), 1);
    EXPECT_EQ(document()->getStoredValue(u"System"_s, u"k"_s, {}), 5);
    EXPECT_EQ(System(u"Other"_s).getPluginData(u"k"_s, 1), 1);
}

TEST_F(BasicLoyaltySystemTest, KeepsNothingWithoutADocument)
{
    m_system.setPluginData(u"k"_s, 5);
    m_system.clearData();
    givenCurrentDocument();

    EXPECT_EQ(m_system.getPluginData(u"k"_s, 1), 1);
}

TEST_F(BasicLoyaltySystemTest, ValuesStayWithTheirDocument)
{
    const auto first = givenCurrentDocument();
    m_system.setPluginData(u"k"_s, 5);
    givenCurrentDocument();
    EXPECT_EQ(m_system.getPluginData(u"k"_s, 1), 1);

    Singleton<Session>::instance()->setCurrentDocument(first);
    EXPECT_EQ(m_system.getPluginData(u"k"_s, 1), 5);
}

TEST_F(BasicLoyaltySystemTest, ClearDataRemovesItsOwnValuesOnly)
{
    givenCurrentDocument();
    System other(u"Other"_s);
    m_system.setPluginData(u"k"_s, 5);
    other.setPluginData(u"k"_s, 6);
    m_system.setEffects(someEffects());
    m_system.clearData();

    EXPECT_EQ(m_system.getPluginData(u"k"_s, 1), 1);
    EXPECT_EQ(other.getPluginData(u"k"_s, 1), 6);
    EXPECT_EQ(m_system.getDiscountImpacts().size(), 1);
}

TEST_F(BasicLoyaltySystemTest, ClearLoyaltyDataEmptiesListsMessagesAndPoints)
{
    m_system.setEffects(someEffects());
    m_system.clearLoyaltyData();

    EXPECT_TRUE(m_system.getDiscountImpacts().isEmpty());
    EXPECT_TRUE(m_system.getBonusImpactsForSpend().isEmpty());
    EXPECT_TRUE(m_system.getBonusRecords().isEmpty());
    EXPECT_TRUE(m_system.getMessagesToCashier().isEmpty());
    EXPECT_TRUE(m_system.getMessagesToClient().isEmpty());
    EXPECT_EQ(m_system.m_pointsForSpend, 0.0);
    EXPECT_EQ(m_system.m_pointsToSpend, 0.0);
    EXPECT_EQ(m_system.m_pointsForEarn, 0.0);
}

TEST_F(BasicLoyaltySystemTest, ClearLoyaltyDataLeavesValuesCardAndLastError)
{
    givenCurrentDocument();
    givenCard();
    m_system.setPluginData(u"k"_s, 5);
    m_system.m_lastError = tr::Tr(u"id"_s, u"текст"_s);
    m_system.clearLoyaltyData();

    EXPECT_EQ(m_system.getPluginData(u"k"_s, 1), 5);
    EXPECT_TRUE(m_system.hasCard());
    EXPECT_EQ(m_system.getLastErrorString().id(), u"id"_s);
}

TEST_F(BasicLoyaltySystemTest, GivesItsEffectsAsTheyWereSet)
{
    m_system.setEffects(someEffects());
    const LoyaltyEffects effects = m_system.getEffects();

    EXPECT_EQ(effects.discountImpacts, m_system.getDiscountImpacts());
    EXPECT_EQ(effects.bonusImpacts, m_system.getBonusImpactsForSpend());
    EXPECT_EQ(effects.bonusRecords.size(), 1);
    EXPECT_EQ(effects.messagesToCashier, QStringList{u"a"_s});
    EXPECT_EQ(effects.messagesToClient, QStringList{u"b"_s});
    EXPECT_EQ(effects.pointsAvailable, 1.0);
    EXPECT_EQ(effects.pointsChosen, 2.0);
    EXPECT_EQ(effects.pointsEarned, 3.0);
}

TEST_F(BasicLoyaltySystemTest, EmptiesOneEffectListAtATime)
{
    m_system.setEffects(someEffects());
    m_system.clearDiscountImpacts();
    EXPECT_TRUE(m_system.getDiscountImpacts().isEmpty());
    EXPECT_FALSE(m_system.getBonusImpactsForSpend().isEmpty());

    m_system.clearBonusImpactsForSpend();
    EXPECT_TRUE(m_system.getBonusImpactsForSpend().isEmpty());
    EXPECT_FALSE(m_system.getBonusRecords().isEmpty());

    m_system.clearBonusRecords();
    EXPECT_TRUE(m_system.getBonusRecords().isEmpty());
}

TEST_F(BasicLoyaltySystemTest, KeepsAvailableAndChosenPointsApart)
{
    m_system.m_pointsForSpend = 50.0;
    m_system.setPointsForSpend({}, 20.0);

    EXPECT_EQ(m_system.getPointsForSpend({}), 50.0);
    EXPECT_EQ(m_system.m_pointsToSpend, 20.0);
}

TEST_F(BasicLoyaltySystemTest, HasTheOptionsThatWereSet)
{
    m_system.setOption(LoyaltySystemOption::SpendsPoints, true);
    m_system.setOption(LoyaltySystemOption::WorksOffline, true);
    m_system.setOption(LoyaltySystemOption::SpendsPoints, false);

    EXPECT_FALSE(m_system.hasOption(LoyaltySystemOption::SpendsPoints));
    EXPECT_FALSE(m_system.hasOption(LoyaltySystemOption::EarnsPoints));
    EXPECT_TRUE(m_system.hasOption(LoyaltySystemOption::WorksOffline));
}

TEST_F(BasicLoyaltySystemTest, RegistersOnceByName)
{
    System other;
    EXPECT_TRUE(m_system.registerLoyaltySystem());
    EXPECT_FALSE(m_system.registerLoyaltySystem());
    EXPECT_FALSE(other.registerLoyaltySystem());

    EXPECT_THAT(Singleton<LoyaltySystems>::instance()->all(), ElementsAre(&m_system));
}

TEST_F(BasicLoyaltySystemTest, IsNoLongerRegisteredWhenItIsGone)
{
    std::make_unique<System>(u"Other"_s)->registerLoyaltySystem();

    EXPECT_TRUE(Singleton<LoyaltySystems>::instance()->all().isEmpty());
}

TEST_F(BasicLoyaltySystemTest, SpreadsPointsInProportionToTheSumsAfterDiscounts)
{
    givenCurrentDocument();
    givenPositionWithSum(100.0);
    givenPositionWithSum(400.0, 100.0);

    EXPECT_THAT(written(distributed(40.0)), ElementsAre(u"1: 10.00"_s, u"2: 30.00"_s));
}

TEST_F(BasicLoyaltySystemTest, LosesNoKopeckWhenItSpreadsPoints)
{
    givenCurrentDocument();
    for (int i = 0; i < 3; ++i)
        givenPositionWithSum(10.0);

    EXPECT_THAT(written(distributed(10.0)), ElementsAre(u"1: 3.33"_s, u"2: 3.34"_s, u"3: 3.33"_s));
    EXPECT_THAT(written(distributed(0.01)), ElementsAre(u"1: 0.00"_s, u"2: 0.01"_s, u"3: 0.00"_s));
}

TEST_F(BasicLoyaltySystemTest, SpreadsNoPointsOverPositionsWithoutASum)
{
    givenCurrentDocument();
    givenPositionWithSum(50.0, 50.0);
    givenPositionWithSum(30.0);
    givenPositionWithSum(20.0, 20.0);

    EXPECT_THAT(written(distributed(7.0)), ElementsAre(u"2: 7.00"_s));
}

TEST_F(BasicLoyaltySystemTest, SpreadsNothingOverADocumentWithoutSums)
{
    EXPECT_TRUE(distributed(7.0).isEmpty());
    givenCurrentDocument();
    EXPECT_TRUE(distributed(7.0).isEmpty());
    givenPositionWithSum(50.0, 50.0);
    EXPECT_TRUE(distributed(7.0).isEmpty());
}

TEST_F(BasicLoyaltySystemTest, EachPieceIsTheRecordWithAPosition)
{
    givenCurrentDocument();
    givenPositionWithSum(50.0);
    const DocumentBonusRecord piece = distributed(7.0).first();

    EXPECT_EQ(piece.getCardNumber(), u"29"_s);
    EXPECT_EQ(piece.getCampaignName(), u"Акция"_s);
    EXPECT_EQ(piece.getPosition().typeId(), QMetaType::QString);
}

} // namespace
