#include "tests/emulator/support/stickersale.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class StickerBooksTest : public StickerDeskTest
{
protected:
    RollbackRequest rollbackOf(const ChequeFigures &figures)
    {
        return {{}, QString::fromLatin1(testCard), figures.transaction};
    }

    /// Three units of tea, all of them for stickers: nine of ten are taken.
    ChequeFigures givenThreeUnits()
    {
        sale = firstSoft(u"17"_s, {{"tea", "189.00", "3.000"}});
        return givenRegistration();
    }
};

TEST_F(StickerBooksTest, TakeTheStickersWithTheSale)
{
    const ChequeFigures figures = givenRegistration();
    EXPECT_EQ(figures.sumDiscounted, figures.sum - amount("210.00"));
    EXPECT_NE(exchangeIn(figures, 0), QString());
    thenStickersAre(0);
    thenBalanceIs("500.00");
    const auto positions = desk().books().transactions.positions(1);
    ASSERT_EQ(positions.size(), 3u);
    EXPECT_EQ(positions[0].stickers, amount("6.00"));
    EXPECT_EQ(positions[1].stickers, amount("4.00"));
    EXPECT_EQ(positions[2].stickers, Amount());
}

TEST_F(StickerBooksTest, NameWhatHasMovedTheStickers)
{
    givenRegistration();
    const auto entries = desk().books().ledger.entries(QString::fromLatin1(testCard));
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[1].account, u"stickers");
    EXPECT_EQ(entries[1].kind, u"opening");
    EXPECT_EQ(entries[1].amount, amount("10.00"));
    EXPECT_EQ(entries[2].account, u"stickers");
    EXPECT_EQ(entries[2].kind, u"spent");
    EXPECT_EQ(entries[2].amount, amount("-10.00"));
    EXPECT_EQ(entries[2].transaction, 1);
}

TEST_F(StickerBooksTest, TakeStickersAndPointsTogether)
{
    const ChequeFigures agreed = givenExchange();
    const ChequeFigures paid
        = whenAccepted(carrying(nextSoft(sale, agreed, amount("10.00")), agreed));
    whenAccepted(carrying(fiscal(sale, paid, amount("10.00")), paid));
    thenStickersAre(0);
    thenBalanceIs("490.00");
}

TEST_F(StickerBooksTest, TakeNothingForAnOffer)
{
    const ChequeFigures offered = whenAccepted(sale);
    const ChequeFigures figures = whenAccepted(registrationOf(offered));
    EXPECT_EQ(figures.sumDiscounted, figures.sum);
    thenStickersAre(10);
}

TEST_F(StickerBooksTest, RefuseAnExchangeThatTheStickersNoLongerPayFor)
{
    const ChequeFigures agreed = givenExchange();
    givenStickersSpentElsewhere("1.000");
    const ChequeAnswer answer = whenAnswered(registrationOf(agreed));
    EXPECT_EQ(answer.outcome.code, returncodes::notEnoughStickers);
    EXPECT_EQ(answer.outcome.message, u"Недостаточно фишек");
    EXPECT_FALSE(answer.figures);
    EXPECT_EQ(transactionCount(), 1u) << "that of the other till";
    thenStickersAre(7);
}

TEST_F(StickerBooksTest, TakeTheChequeAfterARefusalWithoutWhatIsNotPaidFor)
{
    const ChequeFigures agreed = givenExchange();
    givenStickersSpentElsewhere("2.000");
    thenRefused(registrationOf(agreed), returncodes::notEnoughStickers);
    const ChequeFigures next = whenAccepted(carrying(nextSoft(sale, agreed, Amount()), agreed));
    EXPECT_EQ(next.sumDiscounted, next.sum - amount("60.00"));
    EXPECT_EQ(whenAccepted(registrationOf(next)).sumDiscounted, next.sumDiscounted);
    thenStickersAre(1);
}

TEST_F(StickerBooksTest, TakeARegistrationThatOnlyItsQuantityCutsShort)
{
    const ChequeFigures agreed = givenExchange();
    SaleRequest request = registrationOf(agreed);
    request.positions[0].quantity = quantity("1.000");
    request.positions[0].sum = amount("189.00");
    whenAccepted(request);
    thenStickersAre(3);
}

TEST_F(StickerBooksTest, CountARepeatOnceWhateverTheStickersAreNow)
{
    const SaleRequest request = registrationOf(givenExchange());
    const QByteArray first = writeAnswer(desk().answer(request));
    EXPECT_EQ(whenRepeated(request), first);
    thenStickersAre(0);
    SaleRequest bare = sale;
    bare.fiscal = true;
    EXPECT_EQ(whenRepeated(bare), first) << "positions are the same without their attributes";
}

TEST_F(StickerBooksTest, GetTheStickersBackByARollback)
{
    const ChequeFigures sold = givenRegistration();
    whenAccepted(rollbackOf(sold));
    thenStickersAre(10);
    whenAccepted(rollbackOf(sold));
    thenStickersAre(10);
}

TEST_F(StickerBooksTest, GetAllStickersBackByAReturnOfEverything)
{
    givenRegistration();
    whenAccepted(returnOf(u"17"_s, u"18"_s,
        {{"tea", "189.00", "2.000"}, {"butter", "219.90", "2.000"}, {"bread", "45.90", "1.000"}}));
    thenStickersAre(10);
    EXPECT_EQ(
        desk().books().ledger.entries(QString::fromLatin1(testCard)).back().kind, u"given back");
}

TEST_F(StickerBooksTest, GetWholeStickersBackByPartsUntilTheLast)
{
    data.stickerOffers = {{u"tea"_s, 5, amount("60.00"), 1}}; // one unit of three was cheaper
    givenThreeUnits();
    thenStickersAre(5);
    const std::vector<std::pair<QString, int>> rows = {{u"18"_s, 6}, {u"19"_s, 8}, {u"20"_s, 10}};
    for (const auto &[number, stickers] : rows) {
        whenAccepted(returnOf(u"17"_s, number, {{"tea", "189.00", "1.000"}}));
        thenStickersAre(stickers);
    }
}

TEST_F(StickerBooksTest, KeepThePartOfAReturnBesideItsPosition)
{
    givenThreeUnits();
    whenAccepted(returnOf(u"17"_s, u"18"_s, {{"tea", "189.00", "1.000"}}));
    const auto positions = desk().books().transactions.positions(2);
    ASSERT_EQ(positions.size(), 1u);
    EXPECT_EQ(positions[0].stickers, amount("3.00"));
}

TEST_F(StickerBooksTest, TakeTheStickersOfAReturnAgainWhenItIsRolledBack)
{
    givenThreeUnits();
    const ChequeFigures returned
        = whenAccepted(returnOf(u"17"_s, u"18"_s, {{"tea", "189.00", "3.000"}}));
    thenStickersAre(10);
    whenAccepted(rollbackOf(returned));
    thenStickersAre(1);
    whenAccepted(returnOf(u"17"_s, u"19"_s, {{"tea", "189.00", "3.000"}}));
    thenStickersAre(10);
}

TEST_F(StickerBooksTest, StartAgainAfterAReset)
{
    givenRegistration();
    desk().reset();
    thenStickersAre(10);
}

} // namespace
} // namespace emulator
