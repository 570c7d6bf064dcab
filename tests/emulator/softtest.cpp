#include "tests/emulator/support/stickersale.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

/// A calculation leaves the books as they are, whatever it is asked.
class SoftTest : public StickerDeskTest
{
protected:
    SoftTest()
    {
        data.earning.percent = Percent::ofHundredths(500);
        data.technicalCards = {u"375"_s, u"made up"_s, 2};
        data.coupons = {{u"ONCE"_s, {}, true, true, amount("1.00")},
            {u"NEVER"_s, {}, false, false, amount("1.00")}};
        data.instantCoupons = {{Amount(), u"99"_s, u"{coupon}"_s, amount("1.00")}};
        data.spending.confirmAbove = Amount();
        givenCard("31", "10.00", 3);
        givenCard("48", "10.00");
        data.cards.back().forced = ForcedCode{81400, u"never"_s, {}};
    }

    static SaleRequest of(const QString &card, SaleRequest request)
    {
        request.card = card;
        return request;
    }

    SaleRequest withCoupons() const
    {
        SaleRequest request = sale;
        request.coupons = {u"ONCE"_s, u"ONCE"_s, u"NEVER"_s, u"UNKNOWN"_s};
        return request;
    }

    /// Every kind there is, each of another number, beside one cheque that is registered as 17.
    std::vector<SaleRequest> everyKind(const ChequeFigures &last)
    {
        SaleRequest asking = nextSoft(sale, last, amount("10.00"));
        asking.confirmation = Confirmation{true, true, {}};
        std::vector<SaleRequest> kinds = {sale, nextSoft(sale, last, Amount()),
            nextSoft(sale, last, amount("10.00")), nextSoft(sale, last, amount("9999.00")), asking,
            accepting(last), withCoupons(), of(u"3750"_s, sale), of(u"31"_s, sale),
            of(u"48"_s, sale), of(u"0"_s, sale), firstSoft(u"18"_s, {}), sale};
        for (std::size_t index = 0; index + 1 < kinds.size(); ++index)
            kinds[index].number = u"S%1"_s.arg(index);
        return kinds;
    }
};

TEST_F(SoftTest, OfEveryKindLeavesEveryTableAsItIs)
{
    const ChequeFigures last = whenAccepted(sale);
    SaleRequest registered = fiscal(withCoupons(), last, Amount());
    whenAccepted(registered);
    const QStringList before = booksAsText();
    ASSERT_GT(before.size(), 10);
    for (const SaleRequest &request : everyKind(last)) {
        SCOPED_TRACE(qPrintable(request.number));
        desk().answer(request);
        EXPECT_EQ(booksAsText(), before);
        desk().refuse(request, {returncodes::notEnoughPoints, u"ordered"_s});
        EXPECT_EQ(booksAsText(), before);
    }
}

TEST_F(SoftTest, IsToldApartFromARegistrationByTheTables)
{
    const QStringList before = booksAsText();
    whenAccepted(offlineFiscal(u"17"_s, {}));
    EXPECT_NE(booksAsText(), before);
}

TEST_F(SoftTest, OfARefusalAndABalanceLeaveEveryTableAsItIsToo)
{
    whenAccepted(offlineFiscal(u"17"_s, {{"bread", "45.90", "1.000"}}));
    const QStringList before = booksAsText();
    desk().answer(BalanceRequest{sale.till, sale.card});
    thenRefused(
        returnOf(u"17"_s, u"18"_s, {{"bread", "45.90", "2.000"}}), returncodes::unknownSale);
    thenRefused(RollbackRequest{{}, sale.card, u"9"_s}, returncodes::unknownSale);
    thenRefused(offlineFiscal(u"17"_s, {}), returncodes::otherPositions);
    whenRepeated(offlineFiscal(u"17"_s, {{"bread", "45.90", "1.000"}}));
    EXPECT_EQ(booksAsText(), before);
}

} // namespace
} // namespace emulator
