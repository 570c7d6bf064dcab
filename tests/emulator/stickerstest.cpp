#include "tests/emulator/support/stickersale.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class StickersTest : public StickerDeskTest
{
protected:
    static void carry(SaleRequest &request, std::size_t index, const char *key, const char *value)
    {
        request.positions[index].attributes
            = {{QString::fromLatin1(key), QString::fromUtf8(value)}};
    }
};

TEST_F(StickersTest, AreOfferedInACalculationWithoutPoints)
{
    const ChequeFigures figures = whenAccepted(sale);
    EXPECT_EQ(offerIn(figures, 0),
        u"{\"activebalance\":10,\"promocoupons\":3,\"amount\":2,\"discount\":60.0}");
    EXPECT_EQ(offerIn(figures, 1),
        u"{\"activebalance\":10,\"promocoupons\":4,\"amount\":1,\"discount\":90.0}");
    EXPECT_TRUE(figures.positions[2].attributes.isEmpty());
    EXPECT_EQ(figures.sumDiscounted, figures.sum);
    thenStickersAre(10);
}

TEST_F(StickersTest, AreOfferedAgainAfterTheCashierHasDeclined)
{
    const ChequeFigures first = whenAccepted(sale);
    EXPECT_EQ(offerIn(whenAccepted(nextSoft(sale, first, Amount())), 0), offerIn(first, 0));
}

TEST_F(StickersTest, AreNotOfferedBesideAWishForPoints)
{
    const ChequeFigures first = whenAccepted(sale);
    const ChequeFigures paid = whenAccepted(nextSoft(sale, first, amount("10.00")));
    EXPECT_EQ(paid.spent, amount("10.00"));
    thenNothingIsOffered(paid);
}

TEST_F(StickersTest, AreNotOfferedWhenThereAreFewerPointsThanAskedFor)
{
    const ChequeFigures first = whenAccepted(sale);
    const ChequeAnswer answer = whenAnswered(nextSoft(sale, first, amount("499.00")));
    EXPECT_EQ(answer.outcome.code, returncodes::notEnoughPoints);
    thenNothingIsOffered(answer.figures.value());
}

TEST_F(StickersTest, AreNotOfferedInARegistration)
{
    SaleRequest request = sale;
    request.fiscal = true;
    thenNothingIsOffered(whenAccepted(request));
}

TEST_F(StickersTest, AreNotOfferedToATechnicalCard)
{
    data.technicalCards = {u"375"_s, u"Техническая"_s, 2};
    sale.card = u"3750193"_s;
    thenNothingIsOffered(whenAccepted(sale));
}

TEST_F(StickersTest, AreNotOfferedInAForcedShortageOfPointsButStayExchanged)
{
    const ChequeFigures agreed = givenExchange();
    const SaleRequest next = carrying(nextSoft(sale, agreed, Amount()), agreed);
    const Outcome forced{returncodes::notEnoughPoints, u"мало"_s};
    const auto kept = std::get<ChequeAnswer>(desk().refuse(next, forced)).figures.value();
    EXPECT_EQ(exchangeIn(kept, 0), exchangeIn(agreed, 0));
    EXPECT_EQ(kept.sumDiscounted, agreed.sumDiscounted);
    thenNothingIsOffered(std::get<ChequeAnswer>(desk().refuse(sale, forced)).figures.value());
}

TEST_F(StickersTest, AcceptedMakeThePositionsCheaper)
{
    const ChequeFigures figures = givenExchange();
    EXPECT_EQ(figures.positions[0].sumDiscounted, amount("258.00"));
    EXPECT_EQ(figures.positions[1].sumDiscounted, amount("349.80"));
    EXPECT_EQ(figures.sumDiscounted, figures.sum - amount("210.00"));
    EXPECT_EQ(exchangeIn(figures, 0),
        u"{\"card\":\"2900000000017\",\"stickers\":6,\"amount\":2,\"discount\":60.0}");
    EXPECT_EQ(exchangeIn(figures, 1),
        u"{\"card\":\"2900000000017\",\"stickers\":4,\"amount\":1,\"discount\":90.0}");
    thenNothingIsOffered(figures);
    thenStickersAre(10);
}

TEST_F(StickersTest, AcceptedForOnePositionAreOfferedForNoOther)
{
    SaleRequest request = accepting(whenAccepted(sale));
    request.positions[0].attributes.clear();
    const ChequeFigures figures = whenAccepted(request);
    EXPECT_EQ(exchangeIn(figures, 0), QString());
    EXPECT_NE(exchangeIn(figures, 1), QString());
    thenNothingIsOffered(figures);
}

TEST_F(StickersTest, AcceptedInWordsThatCannotBeReadAreNotOfferedAgain)
{
    carry(sale, 0, "StickersInterchange", "yes, please");
    const ChequeFigures figures = whenAccepted(sale);
    EXPECT_EQ(figures.sumDiscounted, figures.sum);
    thenNothingIsOffered(figures);
}

TEST_F(StickersTest, AreExchangedByTheServicesOwnFigures)
{
    carry(sale, 1, "StickersInterchange",
        R"({"activebalance": 900, "promocoupons": 0, "amount": 2, "discount": 219.9})");
    const ChequeFigures figures = whenAccepted(sale);
    EXPECT_EQ(figures.positions[1].sumDiscounted, amount("349.80")) << "one unit, 90.00 off it";
    EXPECT_EQ(exchangeIn(figures, 1),
        u"{\"card\":\"2900000000017\",\"stickers\":4,\"amount\":1,\"discount\":90.0}");
}

TEST_F(StickersTest, AreExchangedAsLongAsTheyLast)
{
    data.cards[0].openingStickers = 7;
    const ChequeFigures figures = givenExchange();
    EXPECT_NE(exchangeIn(figures, 0), QString());
    EXPECT_EQ(exchangeIn(figures, 1), QString()) << "six are gone, four are needed";
}

TEST_F(StickersTest, ReduceWhatOtherDiscountsHaveLeftAndComeBeforePoints)
{
    data.articleDiscounts = {{u"tea"_s, Percent::ofHundredths(5000)}};
    data.coupons = {{u"99"_s, {}, true, false, amount("1.00")}};
    data.spending.share = Percent::ofHundredths(10000);
    data.earning.percent = Percent::ofHundredths(1000);
    sale = firstSoft(u"17"_s, {{"tea", "100.00", "2.000", "15.00"}});
    sale.coupons = {u"99"_s};
    const ChequeFigures figures = givenExchange();
    EXPECT_EQ(figures.sumDiscounted, amount("39.00")) << "a second unit would not leave 30.00";
    EXPECT_EQ(figures.available, amount("9.00"));
    EXPECT_EQ(figures.earned, amount("3.90"));
}

TEST_F(StickersTest, ExchangedStayWithPoints)
{
    const ChequeFigures agreed = givenExchange();
    const ChequeFigures paid
        = whenAccepted(carrying(nextSoft(sale, agreed, amount("10.00")), agreed));
    EXPECT_EQ(paid.spent, amount("10.00"));
    EXPECT_EQ(exchangeIn(paid, 0), exchangeIn(agreed, 0));
    EXPECT_EQ(paid.sumDiscounted, agreed.sumDiscounted);
}

TEST_F(StickersTest, ExchangedStayWhenThereAreFewerPointsThanAskedFor)
{
    const ChequeFigures agreed = givenExchange();
    const ChequeAnswer answer
        = whenAnswered(carrying(nextSoft(sale, agreed, amount("499.00")), agreed));
    EXPECT_EQ(answer.outcome.code, returncodes::notEnoughPoints);
    EXPECT_EQ(exchangeIn(answer.figures.value(), 0), exchangeIn(agreed, 0));
}

TEST_F(StickersTest, AreNotAcceptedBesideAWishForPoints)
{
    const ChequeFigures offered = whenAccepted(sale);
    const ChequeFigures paid
        = whenAccepted(carrying(nextSoft(sale, offered, amount("10.00")), offered));
    EXPECT_EQ(paid.sumDiscounted, paid.sum);
    EXPECT_EQ(exchangeIn(paid, 0), QString());
}

TEST_F(StickersTest, LeftOverAreOfferedForOtherPositions)
{
    data.cards[0].openingStickers = 8;
    const ChequeFigures offered = whenAccepted(sale);
    SaleRequest request = accepting(offered);
    request.positions[0].attributes.clear();
    const ChequeFigures agreed = whenAccepted(request);
    const ChequeFigures next = whenAccepted(carrying(nextSoft(sale, agreed, Amount()), agreed));
    EXPECT_EQ(exchangeIn(next, 1), exchangeIn(agreed, 1));
    EXPECT_EQ(offerIn(next, 1), QString());
    EXPECT_EQ(offerIn(next, 0),
        u"{\"activebalance\":4,\"promocoupons\":3,\"amount\":1,\"discount\":60.0}");
}

TEST_F(StickersTest, AcceptedLaterJoinWhatIsExchanged)
{
    carry(sale, 1, "StickersExchanged", R"({"card": "2900000000017", "amount": 1})");
    carry(sale, 0, "StickersInterchange", R"({"amount": 1})");
    const ChequeFigures figures = whenAccepted(sale);
    EXPECT_EQ(figures.sumDiscounted, figures.sum - amount("150.00"));
    thenNothingIsOffered(figures);
}

TEST_F(StickersTest, AcceptedLaterDoNotTouchWhatIsExchanged)
{
    data.cards[0].openingStickers = 6;
    carry(sale, 1, "StickersExchanged", R"({"card": "2900000000017", "amount": 1})");
    carry(sale, 0, "StickersInterchange", R"({"amount": 2})");
    const ChequeFigures figures = whenAccepted(sale);
    EXPECT_EQ(exchangeIn(figures, 0), QString()) << "two are left, three are needed";
    EXPECT_NE(exchangeIn(figures, 1), QString());
}

TEST_F(StickersTest, ExchangedFollowTheQuantity)
{
    const ChequeFigures agreed = givenExchange();
    sale.positions[0].quantity = quantity("1.000");
    sale.positions[0].sum = amount("189.00");
    const ChequeFigures figures = whenAccepted(carrying(nextSoft(sale, agreed, Amount()), agreed));
    EXPECT_EQ(figures.positions[0].sumDiscounted, amount("129.00"));
    EXPECT_EQ(exchangeIn(figures, 0),
        u"{\"card\":\"2900000000017\",\"stickers\":3,\"amount\":1,\"discount\":60.0}");
}

TEST_F(StickersTest, ThatAreGoneMeanwhileEndTheExchangeInTheNextCalculation)
{
    const ChequeFigures agreed = givenExchange();
    givenStickersSpentElsewhere("1.000");
    const ChequeFigures figures = whenAccepted(carrying(nextSoft(sale, agreed, Amount()), agreed));
    EXPECT_EQ(exchangeIn(figures, 0), exchangeIn(agreed, 0)) << "seven are left, six are needed";
    EXPECT_EQ(exchangeIn(figures, 1), QString());
    EXPECT_EQ(figures.sumDiscounted, figures.sum - amount("120.00"));
}

struct Row
{
    const char *name;
    std::size_t position;
    const char *value;
};

std::string nameOf(const testing::TestParamInfo<Row> &row)
{
    return row.param.name;
}

class IgnoredExchange : public StickersTest, public testing::WithParamInterface<Row>
{ };

TEST_P(IgnoredExchange, ChangesNothing)
{
    const ChequeFigures expected = whenAccepted(sale);
    carry(sale, GetParam().position, "StickersExchanged", GetParam().value);
    const ChequeFigures figures = whenAccepted(nextSoft(sale, expected, Amount()));
    EXPECT_EQ(figures.sumDiscounted, figures.sum);
    EXPECT_EQ(offerIn(figures, 0), offerIn(expected, 0));
    EXPECT_EQ(exchangeIn(figures, GetParam().position), QString());
    EXPECT_EQ(whenAccepted(fiscal(sale, figures, Amount())).sumDiscounted, figures.sum);
    thenStickersAre(10);
}

INSTANTIATE_TEST_SUITE_P(Table, IgnoredExchange,
    testing::Values(Row{"ThatIsNotJson", 0, "agreed"},
        Row{"OfAnotherCard", 0, R"({"card": "2900000000024", "amount": 2})"},
        Row{"OfAnArticleWithoutAnOffer", 2, R"({"card": "2900000000017", "amount": 1})"},
        Row{"OfNoUnits", 0, R"({"card": "2900000000017", "amount": 0})"}),
    nameOf);

} // namespace
} // namespace emulator
