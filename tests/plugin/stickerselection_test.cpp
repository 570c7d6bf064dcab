#include "plugin/stickeractions.h"
#include "plugin/stickerselection.h"
#include "tests/plugin/literaltable.h"
#include "tests/plugin/pluginfixture.h"
#include "tests/plugin/randomoffers.h"

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

using Map = QMap<QString, QVariant>;
namespace key = stickeractions::key;

Map action(const QString &position, const QVariant &promocoupons, const QVariant &amount,
    const QVariant &discount)
{
    return {{key::position, position}, {key::promocoupons, promocoupons}, {key::amount, amount},
        {key::discount, discount}};
}

class StickerSelection : public testing::Test
{
protected:
    stickers::Selection whenSelected(int capacity)
    {
        return stickers::selectMostProfitable(m_actions, capacity);
    }
    void thenOrder(const QStringList &positions) const
    {
        QStringList order;
        for (const QVariant &action : m_actions)
            order.append(stickeractions::positionOf(action));
        EXPECT_EQ(order, positions);
    }

    QList<QVariant> m_actions;
};

TEST_F(StickerSelection, WhatIsNotChosenIsRemoved)
{
    m_actions = {action(u"1"_s, 6, 1, 90.0), action(u"2"_s, 3, 2, 50.0)};
    const auto selection = whenSelected(10);
    EXPECT_EQ(selection.positionsToRemove, QSet<QString>{u"1"_s});
    EXPECT_TRUE(selection.isBest);
}

TEST_F(StickerSelection, TheActionsAreSortedByTotalDiscountThenCost)
{
    m_actions
        = {action(u"1"_s, 6, 1, 90.0), action(u"2"_s, 3, 2, 50.0), action(u"3"_s, 5, 1, 90.0)};
    whenSelected(0);
    thenOrder({u"2"_s, u"3"_s, u"1"_s});
}

TEST_F(StickerSelection, NothingToSpendRemovesEveryPosition)
{
    m_actions = {action(u"1"_s, 0, 1, 90.0), action(u"2"_s, 1, 1, 50.0)};
    for (const int capacity : {0, -1})
        EXPECT_EQ(whenSelected(capacity).positionsToRemove, (QSet<QString>{u"1"_s, u"2"_s}));
}

TEST_F(StickerSelection, AllChosenGivesAnEmptySet)
{
    m_actions = {action(u"1"_s, 1, 1, 90.0), action(u"2"_s, 1, 1, 50.0)};
    EXPECT_EQ(whenSelected(2).positionsToRemove, QSet<QString>());
}

TEST_F(StickerSelection, APositionWithOneChosenAndOneOtherActionIsRemoved)
{
    m_actions = {action(u"1"_s, 6, 1, 90.0), action(u"1"_s, 6, 1, 50.0), action(u"2"_s, 4, 1, 9.0)};
    EXPECT_EQ(whenSelected(10).positionsToRemove, QSet<QString>{u"1"_s});
}

TEST_F(StickerSelection, StickersAndUnitsAreRoundedToWholeOnes)
{
    // 2.5 stickers count as 3, 1.4 units as 1; the total discount is that of the whole units.
    m_actions = {action(u"1"_s, 2.5, 1.4, 10.0)};
    EXPECT_EQ(whenSelected(2).positionsToRemove, QSet<QString>{u"1"_s});
    EXPECT_EQ(whenSelected(3).positionsToRemove, QSet<QString>());
}

TEST_F(StickerSelection, ACostBeyond32BitsIsNotTaken)
{
    constexpr int many = 65536;
    m_actions = {action(u"1"_s, many, many, 10.0), action(u"2"_s, many, many / 2, 9.0)};
    EXPECT_EQ(whenSelected(std::numeric_limits<int>::max()).positionsToRemove,
        (QSet<QString>{u"1"_s, u"2"_s}));
}

TEST_F(StickerSelection, AnEmptyActionCostsAndBringsNothing)
{
    m_actions = {Map{{key::position, u"1"_s}}, action(u"2"_s, 1, 1, 1.0)};
    EXPECT_EQ(whenSelected(5).positionsToRemove, QSet<QString>{u"1"_s});
}

TEST_F(StickerSelection, TooMuchToChooseFromIsTold)
{
    m_actions = {action(u"1"_s, 1'000'000'000, 1, std::numeric_limits<double>::infinity())};
    const auto selection = whenSelected(1'500'000'000);
    EXPECT_FALSE(selection.isBest);
    EXPECT_EQ(selection.positionsToRemove, QSet<QString>());
}

/// The offer of an action, read from its JSON text without the code under test.
stickers::Offer offerOf(const QVariant &action)
{
    const Map map = action.toMap();
    const qint64 units = map.value(u"amount"_s).toInt();
    return {map.value(u"promocoupons"_s).toInt() * units,
        map.value(u"discount"_s).toDouble() * static_cast<double>(units)};
}

QSet<QString> removedByTheLiteralTable(const QList<QVariant> &sortedActions, int capacity)
{
    stickers::Offers offers;
    for (const QVariant &action : sortedActions)
        offers.push_back(offerOf(action));
    const auto chosen = chooseByLiteralTable(offers, capacity);
    QSet<QString> removed;
    for (qsizetype index = 0; index < sortedActions.size(); ++index)
        if (!chosen[static_cast<std::size_t>(index)])
            removed.insert(sortedActions[index].toMap().value(u"position"_s).toString());
    return removed;
}

TEST_F(StickerSelection, FractionalStickersAreSelectedAsByTheLiteralTable)
{
    Dice dice(4);
    for (int number = 0; number < 20000; ++number) {
        m_actions.clear();
        for (qint64 count = dice.roll(1, 7); count > 0; --count)
            m_actions.append(action(QString::number(dice.roll(1, 6)),
                static_cast<double>(dice.roll(-4, 30)) / 4.0, dice.roll(0, 3),
                static_cast<double>(dice.roll(-4, 400)) / 400.0));
        const int capacity = static_cast<int>(dice.roll(-1, 30));
        const auto selection = whenSelected(capacity);
        ASSERT_EQ(selection.positionsToRemove, removedByTheLiteralTable(m_actions, capacity))
            << number;
    }
}

TEST(StickersToSpend, AreTheWholeOnesWithinTheRangeOfIntegers)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    constexpr int most = std::numeric_limits<int>::max();
    struct Row
    {
        double balance;
        int stickers;
    };
    const Row rows[] = {{9.9, 9}, {9.0, 9}, {0.9, 0}, {0.0, 0}, {-0.9, 0}, {-5.0, 0},
        {2147483646.9, most - 1}, {2147483647.0, most}, {2147483648.0, most}, {1e300, most},
        {infinite, 0}, {-infinite, 0}, {std::numeric_limits<double>::quiet_NaN(), 0}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.balance);
        EXPECT_EQ(stickers::spendable(row.balance), row.stickers);
    }
}

} // namespace
