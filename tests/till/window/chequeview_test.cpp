// A document as texts.

#include "tests/support/printers.h"
#include "tests/till/support/tillfixture.h"
#include "till/window/chequeview.h"

using namespace Qt::StringLiterals;

namespace {

class ChequeViewTest : public TillFixture
{
public:
    [[nodiscard]] till::ChequeView view() const { return till::chequeView(document().get(), {}); }
    [[nodiscard]] QSharedPointer<AbstractDocument> document() const { return till->document(); }
};

TEST_F(ChequeViewTest, AnEmptyDeskSellsNothing)
{
    const till::ChequeView empty = till::chequeView(nullptr, {});
    EXPECT_EQ(empty.title, u"Касса свободна");
    EXPECT_EQ(empty.total, u"0.00");
    EXPECT_TRUE(empty.positions.isEmpty());
    EXPECT_EQ(empty.customer.status, u"карта не предъявлена");
}

TEST_F(ChequeViewTest, APositionIsShownAsItWasAdded)
{
    till->addPosition({u"1003"_s, 1.5, {}, {}, {}});
    const till::PositionRow row{
        1, u"1003"_s, u"Сыр"_s, u"1.5 кг"_s, u"600.00"_s, {}, u"900.00"_s, {}};
    EXPECT_EQ(view().positions, QList{row});
    EXPECT_EQ(view().total, u"900.00");
    EXPECT_EQ(view().title, u"Продажа, чек № 17");
}

TEST_F(ChequeViewTest, DiscountAndPointsOfAPositionStandApart)
{
    givenCalculatedSale({u"1002"_s, u"1001"_s}, 10.0);
    loyalty->setAvailablePoints(50.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 30.0);
        return true;
    };
    till->payWithPoints(30.0);
    const till::PositionRow row = view().positions.constFirst();
    EXPECT_EQ(row.discount, u"10.00");
    EXPECT_EQ(row.points, u"30.00");
    EXPECT_EQ(row.sum, u"60.00");
    EXPECT_EQ(view().total, u"105.90");
}

TEST_F(ChequeViewTest, ACustomerIsShownWithTypeAndPoints)
{
    givenIdentifiedCard();
    const auto record = document()->getCardRecord(ECardMode::OnlineLoyalty);
    const auto client = QSharedPointer<Client>::create();
    client->setName(u"Золотая"_s);
    record->getCard()->setClient(client);
    record->setBonusBalance(500.0);
    LoyaltyEffects effects;
    effects.pointsAvailable = 120.5;
    effects.pointsEarned = 7.0;
    document()->setEffects(effects);
    EXPECT_EQ(view().customer,
        (till::CustomerView{u"2900000000017"_s, u"Золотая"_s, u"500.00"_s, u"120.50"_s, {},
            u"7.00"_s, u"карта принята"_s}));
}

TEST_F(ChequeViewTest, PointsThatPayAreTheChosenOnes)
{
    givenIdentifiedCard();
    givenCalculatedSale({u"1002"_s}, 0.0);
    loyalty->setAvailablePoints(50.0);
    loyalty->behaviour[u"spendPoints"_s] = [this] {
        loyalty->givePoints(1, 30.0);
        return true;
    };
    till->payWithPoints({});
    EXPECT_EQ(view().customer.chosen, u"30.00");
}

TEST_F(ChequeViewTest, ARegisteredChequeSaysSo)
{
    givenIdentifiedCard();
    document()->getCardRecord(ECardMode::OnlineLoyalty)->setOperationId(u"T-1"_s);
    EXPECT_EQ(view().customer.status, u"чек зарегистрирован");
}

TEST_F(ChequeViewTest, AReturnKeepsTheBalanceOfTheSaleToItself)
{
    givenClosedSale();
    till->openReturnOf(u"17"_s);
    document()->getCardRecord(ECardMode::OnlineLoyalty)->setBonusBalance(500.0);
    EXPECT_EQ(view().title, u"Возврат № 18 по чеку № 17");
    EXPECT_EQ(view().customer.balance, QString());
    EXPECT_EQ(view().customer.status, u"карта из чека продажи");
}

TEST_F(ChequeViewTest, AReturnWithoutASaleSaysSo)
{
    till->openReturn();
    EXPECT_EQ(view().title, u"Возврат без чека, № 17");
}

TEST_F(ChequeViewTest, CouponsAreShownAsThePlugInWantsThem)
{
    till->addCoupon(u"9900001"_s, {});
    document()->getCoupon(u"9900001"_s)->setDisplayedNumber(u"9900001 (скидка)"_s);
    EXPECT_EQ(view().coupons, QStringList{u"9900001 (скидка)"_s});
}

} // namespace
