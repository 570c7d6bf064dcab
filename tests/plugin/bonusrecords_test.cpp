#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

namespace key = korvel::result;

class BonusRecords : public PluginFixture
{
protected:
    BonusRecords()
    {
        givenSaleWithCard();
        givenPosition(u"1001"_s, 30.0);
        givenPosition(u"1002"_s, 10.0);
    }
    static Map earned(double active, double status = 0.0)
    {
        return {{key::activeChargedBonus, active}, {key::chargedStatusBonus, status}};
    }
    void whenFilled(const QString &active, const QString &status, const Map &positions)
    {
        plugin().fillBonusRecords({{key::activeChargedBonus, active},
            {key::chargedStatusBonus, status}, {key::positions, positions}});
    }
    const DocumentBonusRecord &record(qsizetype index)
    {
        return plugin().getBonusRecords().at(index);
    }
};

TEST_F(BonusRecords, PointsOfAPositionBecomeItsRecord)
{
    whenFilled(u"7"_s, u"0"_s, {{u"02"_s, earned(10.0, 3.0)}});
    ASSERT_EQ(plugin().getBonusRecords().size(), 1);
    EXPECT_EQ(record(0).getCardNumber(), u"2900000000017"_s);
    EXPECT_EQ(record(0).getPosition(), QVariant(u"02"_s));
    EXPECT_EQ(record(0).getAmount(), 7.0);
    EXPECT_EQ(record(0).getCampaignCode(), 1200);
    EXPECT_EQ(record(0).getCampaignName(), u"Начисление Korvel Loyalty Online"_s);
    EXPECT_EQ(record(0).getDateTime(), now());
    EXPECT_TRUE(record(0).isGivenForPosition());
}

TEST_F(BonusRecords, PointsAtTheToleranceMakeNoRecord)
{
    whenFilled(u"0.005"_s, u"0"_s, {{u"1"_s, earned(1.005, 1.0)}});
    EXPECT_TRUE(plugin().getBonusRecords().isEmpty());
}

TEST_F(BonusRecords, ARestWithinTheToleranceIsNotSpread)
{
    whenFilled(u"15.004"_s, u"0"_s, {{u"1"_s, earned(10.0)}, {u"2"_s, earned(5.0)}});
    ASSERT_EQ(plugin().getBonusRecords().size(), 2);
    EXPECT_EQ(record(0).getAmount(), 10.0);
    EXPECT_EQ(record(1).getAmount(), 5.0);
}

TEST_F(BonusRecords, TheRestOfTheChequeIsSpreadByTheHostBehindThem)
{
    whenFilled(u"21"_s, u"1"_s, {{u"1"_s, earned(10.0)}, {u"2"_s, earned(6.0, 1.0)}});
    ASSERT_EQ(plugin().getBonusRecords().size(), 4);
    EXPECT_EQ(record(2).getPosition(), QVariant(u"1"_s));
    EXPECT_EQ(record(2).getAmount(), 3.75);
    EXPECT_EQ(record(3).getPosition(), QVariant(u"2"_s));
    EXPECT_EQ(record(3).getAmount(), 1.25);
}

TEST_F(BonusRecords, ThePiecesOfTheRestAreNotMarkedAsGivenForTheirPositions)
{
    whenFilled(u"4"_s, u"0"_s, {});
    ASSERT_EQ(plugin().getBonusRecords().size(), 2);
    for (const auto &piece : plugin().getBonusRecords()) {
        EXPECT_FALSE(piece.isGivenForPosition());
        EXPECT_EQ(piece.getCampaignCode(), 1200);
        EXPECT_EQ(piece.getCampaignName(), u"Начисление Korvel Loyalty Online"_s);
        EXPECT_EQ(piece.getCardNumber(), u"2900000000017"_s);
        EXPECT_EQ(piece.getDateTime(), now());
    }
}

TEST_F(BonusRecords, PositionsAreWalkedAsTextsAndAppended)
{
    plugin().m_bonusRecords = {DocumentBonusRecord()};
    whenFilled(
        u"6"_s, u"0"_s, {{u"2"_s, earned(2.0)}, {u"10"_s, earned(3.0)}, {u"1"_s, earned(1.0)}});
    ASSERT_EQ(plugin().getBonusRecords().size(), 4);
    EXPECT_EQ(record(1).getPosition(), QVariant(u"1"_s));
    EXPECT_EQ(record(2).getPosition(), QVariant(u"10"_s));
    EXPECT_EQ(record(3).getPosition(), QVariant(u"2"_s));
}

} // namespace
