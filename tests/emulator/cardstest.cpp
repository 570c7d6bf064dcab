#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class CardsTest : public DeskTest
{
protected:
    BalanceAnswer whenBalanceIsAsked(const QString &card)
    {
        return std::get<BalanceAnswer>(desk().answer(BalanceRequest{{}, card}));
    }

    static SaleRequest saleWith(const QString &card)
    {
        SaleRequest sale = offlineFiscal(u"17"_s, {{"1001", "100.00", "1.000"}});
        sale.card = card;
        return sale;
    }
};

TEST_F(CardsTest, BalanceTellsAllAboutTheCard)
{
    data.cards[0].type = u"Золотая"_s;
    data.cards[0].holder = u"Соколова"_s;
    data.cards[0].email = u"m@example.com"_s;
    data.cards[0].chequesByEmail = true;
    data.cards[0].attributes = {{u"VIP"_s, u"1"_s}};
    const auto card = whenBalanceIsAsked(QString::fromLatin1(testCard)).card;
    ASSERT_TRUE(card);
    EXPECT_EQ(card->status, 2);
    EXPECT_EQ(card->type, u"Золотая");
    EXPECT_EQ(card->balance, amount("500.00"));
    EXPECT_EQ(card->holder, u"Соколова");
    EXPECT_EQ(card->email, u"m@example.com");
    EXPECT_TRUE(card->chequesByEmail);
    EXPECT_EQ(card->attributes.value(u"VIP"_s), u"1");
}

TEST_F(CardsTest, UnknownOneIsRefusedEverywhere)
{
    EXPECT_EQ(whenBalanceIsAsked(u"404"_s).outcome.code, returncodes::unknownCard);
    thenRefused(saleWith(u"404"_s), returncodes::unknownCard);
    ReturnRequest returning = returnOf(QString(), u"18"_s, {});
    returning.card = u"404"_s;
    thenRefused(returning, returncodes::unknownCard);
}

TEST_F(CardsTest, BlockedOneTellsItsStatusButSellsNothing)
{
    givenCard("31", "120.00", 3);
    EXPECT_EQ(whenBalanceIsAsked(u"31"_s).card->status, 3);
    thenRefused(saleWith(u"31"_s), returncodes::cardNotServed);
    SaleRequest soft = saleWith(u"31"_s);
    soft.fiscal = false;
    thenRefused(soft, returncodes::cardNotServed);
    thenBalanceIs("120.00", "31");
}

TEST_F(CardsTest, ForcedCodeIsAnsweredAndNothingDone)
{
    data.cards[0].forced = ForcedCode{80001, u"нет"_s, {}};
    EXPECT_EQ(whenBalanceIsAsked(QString::fromLatin1(testCard)).outcome.code, 80001);
    thenRefused(saleWith(QString::fromLatin1(testCard)), 80001);
    EXPECT_EQ(transactionCount(), 0u);
}

TEST_F(CardsTest, ForcedCodeOfOneOperationLeavesTheOthers)
{
    data.cards[0].forced = ForcedCode{80001, u"нет"_s, {u"fiscal"_s}};
    EXPECT_EQ(whenBalanceIsAsked(QString::fromLatin1(testCard)).outcome.code, 0);
    thenRefused(saleWith(QString::fromLatin1(testCard)), 80001);
}

TEST_F(CardsTest, ForcedShortageOfPointsHoldsAllFigures)
{
    data.cards[0].forced = ForcedCode{returncodes::notEnoughPoints, u"мало"_s, {}};
    const ChequeAnswer answer = whenAnswered(saleWith(QString::fromLatin1(testCard)));
    EXPECT_EQ(answer.outcome.code, returncodes::notEnoughPoints);
    ASSERT_TRUE(answer.figures);
    EXPECT_EQ(answer.figures->available, amount("50.00"));
    EXPECT_EQ(answer.figures->sum, amount("100.00"));
    EXPECT_EQ(transactionCount(), 0u);
}

TEST_F(CardsTest, TechnicalOneGetsDiscountsAndNeitherEarnsNorSpends)
{
    data.technicalCards = {u"375"_s, u"Техническая"_s, 2};
    data.articleDiscounts = {{u"1001"_s, Percent::ofHundredths(1000)}};
    const ChequeFigures figures = whenAccepted(saleWith(u"3750193"_s));
    EXPECT_EQ(figures.sumDiscounted, amount("90.00"));
    EXPECT_EQ(figures.earned, Amount());
    EXPECT_EQ(figures.available, Amount());
    thenBalanceIs("0.00", "3750193");
    EXPECT_EQ(whenBalanceIsAsked(u"3750193"_s).card->type, u"Техническая");
}

TEST_F(CardsTest, TechnicalOneIsNotKeptByACalculation)
{
    data.technicalCards = {u"375"_s, u"Техническая"_s, 2};
    SaleRequest soft = saleWith(u"3750193"_s);
    soft.fiscal = false;
    whenAccepted(soft);
    EXPECT_FALSE(desk().books().cards.find(u"3750193"_s));
}

} // namespace
} // namespace emulator
