// Positions and coupons.

#include "tests/till/support/tillfixture.h"

using namespace Qt::StringLiterals;

namespace {

class PositionsTest : public TillFixture
{
public:
    till::Outcome whenAdded(const QString &code, double quantity = 1.0)
    {
        return till->addPosition({code, quantity, {}, {}, {}});
    }
    QSharedPointer<GoodsItem> position(int number) const
    {
        return till->document()->getPosition(number);
    }
    void givenTrigger(control::EActionType type, EContext::Result result)
    {
        loyalty->hookIn(type, ActionTrigger::Order::Before,
            [result](const control::Action &) { return result; });
    }
};

TEST_F(PositionsTest, APositionIsMadeFromTheCatalogue)
{
    whenAdded(u"1003"_s, 0.742);
    const auto cheese = position(1);
    EXPECT_EQ(cheese->getName(), u"Сыр"_s);
    EXPECT_EQ(cheese->getBarcode(), u"461003"_s);
    EXPECT_DOUBLE_EQ(cheese->getBquant(), 0.742);
    EXPECT_DOUBLE_EQ(cheese->getSumn(), 445.2);
    EXPECT_TRUE(cheese->getTmcUnit().isFractional());
    EXPECT_TRUE(cheese->getTmc());
    EXPECT_DOUBLE_EQ(cheese->getMinRetailPrice(), 500.0);
    EXPECT_EQ(cheese->getExtendedOptions(), u"fresh"_s);
}

TEST_F(PositionsTest, PriceAndOptionsCanBeGiven)
{
    till->addPosition({u"1001"_s, 2.0, {}, 30.0, u"MARKDOWN30"_s});
    EXPECT_DOUBLE_EQ(position(1)->getPrice(), 30.0);
    EXPECT_DOUBLE_EQ(position(1)->getSumn(), 60.0);
    EXPECT_EQ(position(1)->getExtendedOptions(), u"MARKDOWN30"_s);
}

TEST_F(PositionsTest, TheSameArticleAlwaysMakesANewPosition)
{
    whenAdded(u"1001"_s);
    whenAdded(u"1001"_s);
    EXPECT_EQ(till->document()->getGoods().size(), 2);
}

TEST_F(PositionsTest, NumbersAreNeverGivenTwice)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    till->removePosition(2);
    whenAdded(u"1003"_s);
    EXPECT_FALSE(position(2));
    EXPECT_TRUE(position(3));
}

TEST_F(PositionsTest, AnUnknownArticleOpensNoSale)
{
    EXPECT_TRUE(whyNot([&] { whenAdded(u"77"_s); }).startsWith(u"в каталоге нет товара 77"));
    EXPECT_FALSE(till->document());
}

TEST_F(PositionsTest, TriggersSeePositionAndRawDataBeforeAndAfter)
{
    QStringList seen;
    for (const auto order : {ActionTrigger::Order::Before, ActionTrigger::Order::After})
        loyalty->hookIn(
            control::EActionType::AddPosition, order, [&](const control::Action &action) {
                const auto item
                    = action.value(u"position"_s, {}).value<QSharedPointer<GoodsItem>>();
                seen.append(u"%1 %2 %3"_s.arg(item->getPosnum())
                                .arg(action.value(u"rawdata"_s, {}).toString())
                                .arg(document()->getGoods().size()));
                return EContext::Result::Continue;
            });
    till->addPosition({u"1001"_s, 1.0, u"RAW"_s, {}, {}});
    EXPECT_EQ(seen, (QStringList{u"1 RAW 0"_s, u"1 RAW 1"_s}));
}

TEST_F(PositionsTest, AStoppedPositionIsNotAddedAndItsNumberNotGiven)
{
    for (const auto result : {EContext::Result::Refuse, EContext::Result::Stop}) {
        FakeLoyalty stopping;
        till::Till other(stopping, catalogue, *store, *exchanges);
        stopping.hookIn(control::EActionType::AddPosition, ActionTrigger::Order::Before,
            [result](const control::Action &) { return result; });
        const auto outcome = other.addPosition({u"1001"_s, 1.0, {}, {}, {}});
        EXPECT_EQ(outcome.result, QVariant(static_cast<int>(result)));
        EXPECT_TRUE(other.document()->getGoods().isEmpty());
        EXPECT_EQ(other.document()->getNextPosnum(), 1);
    }
}

TEST_F(PositionsTest, AnAddedPositionHasNoResultOfItsOwn)
{
    EXPECT_FALSE(whenAdded(u"1001"_s).result.isValid());
}

TEST_F(PositionsTest, QuantityShowsModifier3ToTheTriggerAndApplies)
{
    givenSaleOf({u"1001"_s, u"1002"_s});
    double asked = 0.0;
    loyalty->hookIn(control::EActionType::ApplyModifiers, ActionTrigger::Order::Before,
        [&](const control::Action &action) {
            EXPECT_EQ(action.value(u"positionNumber"_s, {}), QVariant(2));
            asked = document()
                        ->getModifiers()
                        .value(modifiers::Type::Quantity)
                        .value<Quantity>()
                        .value();
            return EContext::Result::Continue;
        });
    till->changeQuantity(2, 3.0);
    EXPECT_DOUBLE_EQ(asked, 3.0);
    EXPECT_DOUBLE_EQ(position(2)->getSumb(), 300.0);
    EXPECT_FALSE(document()->getModifiers().isSet(modifiers::Type::Quantity));
}

TEST_F(PositionsTest, AStoppedQuantityLeavesThePositionAsItWas)
{
    givenSaleOf({u"1001"_s});
    givenTrigger(control::EActionType::ApplyModifiers, EContext::Result::Stop);
    EXPECT_EQ(till->changeQuantity(1, 3.0).result, QVariant(1));
    EXPECT_DOUBLE_EQ(position(1)->getBquant(), 1.0);
    EXPECT_FALSE(document()->getModifiers().isSet(modifiers::Type::Quantity));
}

TEST_F(PositionsTest, UnknownPositionsAreErrors)
{
    givenSaleOf({u"1001"_s});
    const QString wanted = u"в документе нет позиции 2; "_s;
    EXPECT_TRUE(whyNot([&] { till->changeQuantity(2, 1.0); }).startsWith(wanted));
    EXPECT_TRUE(whyNot([&] { till->removePosition(2); }).startsWith(wanted));
}

TEST_F(PositionsTest, AnEmptyDeskHasNoPositions)
{
    EXPECT_TRUE(
        whyNot([&] { till->changeQuantity(1, 1.0); }).startsWith(u"нет открытого документа"));
    EXPECT_TRUE(whyNot([&] { till->removePosition(1); }).startsWith(u"нет открытого документа"));
}

TEST_F(PositionsTest, AChangedChequeDropsPaymentsButNotPluginData)
{
    const QList<std::function<void()>> changes{[this] { whenAdded(u"1002"_s); },
        [this] { till->changeQuantity(1, 2.0); }, [this] { till->addCoupon(u"990"_s, {}); },
        [this] { till->removePosition(2); }, [this] { givenIdentifiedCard(); }};
    givenSaleOf({u"1001"_s, u"1002"_s});
    document()->setStoredValue(u"FakeLoyalty"_s, u"key"_s, 1);
    for (const auto &change : changes) {
        till->pay(till::PaymentKind::Cash, 1.0);
        change();
        EXPECT_TRUE(document()->getPayments().isEmpty());
    }
    EXPECT_EQ(document()->getStoredValue(u"FakeLoyalty"_s, u"key"_s, {}), QVariant(1));
}

TEST_F(PositionsTest, ARegisteredChequeCannotBeChanged)
{
    givenIdentifiedCard();
    givenSaleOf({u"1001"_s});
    loyalty->presented->setOperationId(u"T-1"_s);
    const QList<std::function<void()>> changes{[this] { whenAdded(u"1002"_s); },
        [this] { till->changeQuantity(1, 2.0); }, [this] { till->addCoupon(u"990"_s, {}); },
        [this] { till->removePosition(1); }, [this] { till->calculate(); },
        [this] { till->payWithPoints(std::nullopt); }, [this] { till->scan(u"461001"_s); }};
    for (const auto &change : changes)
        EXPECT_TRUE(whyNot(change).startsWith(u"чек зарегистрирован"));
}

TEST_F(PositionsTest, AReturnOfASaleTakesNoOtherGoods)
{
    till->openReturnOf(givenClosedSale());
    EXPECT_TRUE(whyNot([&] { whenAdded(u"1001"_s); }).startsWith(u"возврат по чеку берёт"));
    EXPECT_TRUE(whyNot([&] { till->scan(u"461001"_s); }).startsWith(u"возврат по чеку берёт"));
}

TEST_F(PositionsTest, NoMoreCanBeReturnedThanWasSold)
{
    till->openReturnOf(givenClosedSale());
    EXPECT_TRUE(
        whyNot([&] { till->changeQuantity(1, 1.5); }).startsWith(u"по позиции 1 продано только 1"));
    till->changeQuantity(1, 0.5);
    EXPECT_DOUBLE_EQ(position(1)->getBquant(), 0.5);
}

TEST_F(PositionsTest, ACouponOpensASaleAndTellsTheTriggersNumberAndRawData)
{
    QStringList seen;
    loyalty->hookIn(control::EActionType::AddCoupon, ActionTrigger::Order::After,
        [&](const control::Action &action) {
            EXPECT_TRUE(document()->getCoupon(u"990"_s));
            seen = QStringList{action.value(u"couponNumber"_s, {}).toString(),
                action.value(u"rawdata"_s, u"none"_s).toString()};
            return EContext::Result::Continue;
        });
    till->addCoupon(u"990"_s, {});
    EXPECT_EQ(seen, (QStringList{u"990"_s, QString()}));
}

TEST_F(PositionsTest, ACouponCountsOnce)
{
    till->addCoupon(u"990"_s, {});
    EXPECT_TRUE(whyNot([&] { till->addCoupon(u"990"_s, {}); }).startsWith(u"купон 990 уже есть"));
}

TEST_F(PositionsTest, AReturnTakesNoCoupons)
{
    till->openReturn();
    EXPECT_TRUE(whyNot([&] { till->addCoupon(u"990"_s, {}); }).startsWith(u"возврат не принимает"));
}

} // namespace
