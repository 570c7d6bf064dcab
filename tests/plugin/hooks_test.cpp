#include "host/framework/session.h"
#include "tests/plugin/pluginfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using EContext::Result;

class Hooks : public PluginFixture
{
protected:
    Hooks()
    {
        givenCurrentDocument();
        position = givenPosition(u"1001"_s, 10.0);
    }
    static control::Action scan(const QString &data)
    {
        return control::Action(control::EActionType::Input, {{u"rawdata"_s, data}});
    }
    Result whenAdded(const QString &scanned)
    {
        return plugin().beforePositionAdd(control::Action(control::EActionType::AddPosition,
            {{u"rawdata"_s, scanned}, {u"position"_s, QVariant::fromValue(position)}}));
    }
    Result whenModified(int number)
    {
        return plugin().beforeApplyModifiers(
            control::Action(control::EActionType::ApplyModifiers, {{u"positionNumber"_s, number}}));
    }
    void givenQuantity(double quantity)
    {
        document()->getModifiers().set(
            modifiers::Type::Quantity, QVariant::fromValue(Quantity(quantity)));
    }
    void givenRepeatedScan()
    {
        document()->getModifiers().set(modifiers::Type::RepeatedScan, true);
    }
    void givenForbiddenChange() { plugin().allowChangeQuantityForMarkdownPositions = false; }
    void thenForbidden() const
    {
        thenDialog(u"korvelOnlineForbidChangeQuantity"_s,
            u"Изменение количества для позиции с уценкой запрещено"_s);
    }

    QSharedPointer<GoodsItem> position;
};

TEST_F(Hooks, ScannedMarkdownDataIsRememberedUntilTheNextPosition)
{
    EXPECT_EQ(plugin().afterPositionAdd(scan(u"x-markdown9"_s)), Result::Continue);
    EXPECT_EQ(plugin().lastMarkdownRawData, u"x-markdown9"_s);
    EXPECT_EQ(plugin().afterPositionAdd(scan(u"46000"_s)), Result::Continue);
    EXPECT_EQ(plugin().lastMarkdownRawData, u"x-markdown9"_s);
    whenAdded(u"46000"_s);
    EXPECT_EQ(plugin().lastMarkdownRawData, QString());
}

TEST_F(Hooks, ARepeatedMarkdownScanChangesTheLastPosition)
{
    plugin().lastMarkdownRawData = u"MARKDOWN9"_s;
    givenRepeatedScan();
    const auto action = scan(u"MARKDOWN9"_s);
    EXPECT_EQ(plugin().beforeInput(action), Result::Continue);
    EXPECT_EQ(action.value(u"scanDiscountBarcodeBeforeAddInvent"_s), QVariant(false));
    EXPECT_EQ(action.value(u"useLastChangedPosition"_s), QVariant(true));
}

TEST_F(Hooks, OtherScansGoOnUnchanged)
{
    plugin().lastMarkdownRawData = u"MARKDOWN9"_s;
    givenRepeatedScan();
    for (const auto &data : {u"markdown9"_s, u"MARKDOWN99"_s, u"MARKDOWN"_s}) {
        const auto action = scan(data);
        EXPECT_EQ(plugin().beforeInput(action), Result::Continue);
        EXPECT_FALSE(action.value(u"useLastChangedPosition"_s).isValid());
        EXPECT_FALSE(action.value(u"scanDiscountBarcodeBeforeAddInvent"_s).isValid());
    }
}

TEST_F(Hooks, WithoutTheModifierARepeatedScanGoesOnUnchanged)
{
    plugin().lastMarkdownRawData = u"MARKDOWN9"_s;
    givenQuantity(2.0);
    const auto action = scan(u"MARKDOWN9"_s);
    EXPECT_EQ(plugin().beforeInput(action), Result::Continue);
    EXPECT_FALSE(action.value(u"useLastChangedPosition"_s).isValid());
}

TEST_F(Hooks, AnActionWithoutAPositionStops)
{
    position.reset();
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Stop);
}

TEST_F(Hooks, AnOrdinaryPositionIsLeftAlone)
{
    givenForbiddenChange();
    client().minRetailPrice = 5.0;
    position->setBquant(3.0);
    EXPECT_EQ(whenAdded(u"46000"_s), Result::Continue);
    EXPECT_EQ(position->getMinRetailPrice(), 0.0);
    EXPECT_TRUE(position->isUniteAvailable());
}

TEST_F(Hooks, AMarkdownPositionGetsItsMinimumPriceAndStaysAlone)
{
    givenForbiddenChange();
    client().minRetailPrice = 5.0;
    EXPECT_EQ(whenAdded(u"markdown9"_s), Result::Continue);
    EXPECT_EQ(position->getMinRetailPrice(), 5.0);
    EXPECT_FALSE(position->isUniteAvailable());
    EXPECT_TRUE(story().dialogs.isEmpty());
}

TEST_F(Hooks, TheOptionsOfThePositionMarkItToo)
{
    position->setExtendedOptions(u"a,Markdown"_s);
    EXPECT_EQ(whenAdded(u"46000"_s), Result::Continue);
    EXPECT_FALSE(position->isUniteAvailable());
}

TEST_F(Hooks, AMinimumPriceWithinTheToleranceIsNotSet)
{
    position->setMinRetailPrice(3.0);
    for (const double price : {-1.0, 0.0, 0.005}) {
        client().minRetailPrice = price;
        plugin().setPropertiesForMarkdownPosition(position);
        EXPECT_EQ(position->getMinRetailPrice(), 3.0) << price;
        EXPECT_FALSE(position->isUniteAvailable());
    }
}

TEST_F(Hooks, SeveralUnitsOfAMarkdownPositionAreRefused)
{
    givenForbiddenChange();
    position->setBquant(2.0);
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Refuse);
    thenForbidden();
    EXPECT_TRUE(position->isUniteAvailable());
}

TEST_F(Hooks, SeveralUnitsAreAddedWhereThatIsAllowed)
{
    position->setBquant(2.0);
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Continue);
    EXPECT_FALSE(position->isUniteAvailable());
}

TEST_F(Hooks, AWeighedMarkdownPositionIsAddedWhateverItsQuantity)
{
    givenForbiddenChange();
    position->setBquant(2.345);
    position->setTmcUnit(TmcUnit(u"кг"_s, true));
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Continue);
    EXPECT_FALSE(position->isUniteAvailable());
}

TEST_F(Hooks, OneUnitMayBeSlightlyMore)
{
    givenForbiddenChange();
    position->setBquant(1.0004);
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Continue);
    position->setBquant(1.0006);
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Refuse);
}

TEST_F(Hooks, AnotherQuantityOfAMarkdownPositionIsStopped)
{
    givenForbiddenChange();
    position->setExtendedOptions(u"markdown"_s);
    givenQuantity(2.0);
    givenRepeatedScan();
    EXPECT_EQ(whenModified(1), Result::Stop);
    thenForbidden();
    EXPECT_FALSE(document()->getModifiers().isSet(modifiers::Type::Quantity));
    EXPECT_FALSE(document()->getModifiers().isSet(modifiers::Type::RepeatedScan));
}

TEST_F(Hooks, TheQuantityThatThePositionHasPasses)
{
    givenForbiddenChange();
    position->setExtendedOptions(u"MARKDOWN"_s);
    for (const double quantity : {1.0, 1.0004, 0.9996}) {
        givenQuantity(quantity);
        EXPECT_EQ(whenModified(1), Result::Continue) << quantity;
    }
    givenQuantity(0.9994);
    EXPECT_EQ(whenModified(1), Result::Stop);
}

TEST_F(Hooks, OtherModifiersPass)
{
    givenForbiddenChange();
    position->setExtendedOptions(u"MARKDOWN"_s);
    givenRepeatedScan();
    EXPECT_EQ(whenModified(1), Result::Continue);
    EXPECT_TRUE(document()->getModifiers().isSet(modifiers::Type::RepeatedScan));
}

TEST_F(Hooks, AnotherQuantityPassesWhereThatIsAllowed)
{
    position->setExtendedOptions(u"MARKDOWN"_s);
    givenQuantity(2.0);
    EXPECT_EQ(whenModified(1), Result::Continue);
    EXPECT_TRUE(document()->getModifiers().isSet(modifiers::Type::Quantity));
}

TEST_F(Hooks, OrdinaryAndUnknownPositionsTakeAnyQuantity)
{
    givenForbiddenChange();
    givenQuantity(2.0);
    EXPECT_EQ(whenModified(1), Result::Continue);
    EXPECT_EQ(whenModified(7), Result::Continue);
    thenNothingHappened();
}

TEST_F(Hooks, AnEmptyDeskIsLeftAlone)
{
    Singleton<Session>::instance()->setCurrentDocument({});
    givenForbiddenChange();
    position->setBquant(2.0);
    plugin().afterPositionAdd(scan(u"MARKDOWN9"_s));
    EXPECT_EQ(plugin().lastMarkdownRawData, QString());
    EXPECT_EQ(plugin().beforeInput(scan(QString())), Result::Continue);
    EXPECT_EQ(whenAdded(u"MARKDOWN9"_s), Result::Continue);
    EXPECT_EQ(whenModified(1), Result::Continue);
    thenNothingHappened();
}

TEST_F(Hooks, ClearingTheChequeKeepsTheLastMarkdownScan)
{
    plugin().lastMarkdownRawData = u"MARKDOWN9"_s;
    plugin().clearLoyaltyData();
    EXPECT_EQ(plugin().lastMarkdownRawData, u"MARKDOWN9"_s);
}

} // namespace
