#include "tests/emulator/support/desktest.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class ConfirmationTest : public DeskTest
{
protected:
    ConfirmationTest()
        : sale(firstSoft(u"17"_s, {{"1001", "400.00", "1.000"}}))
    {
        data.spending.confirmAbove = amount("100.00");
    }

    /// The calculation that asks for a code; its answer.
    ChequeFigures whenCodeIsAsked(const char *points)
    {
        SaleRequest request = nextSoft(sale, whenAccepted(sale), amount(points));
        request.confirmation = Confirmation{true, true, {}};
        return whenAccepted(request);
    }

    SaleRequest registration(const ChequeFigures &last, const char *points, const QString &code)
    {
        SaleRequest request = fiscal(sale, last, amount(points));
        request.confirmation = Confirmation{!code.isEmpty(), false, code};
        return request;
    }

    SaleRequest sale;
};

TEST_F(ConfirmationTest, IssuesSixDigits)
{
    EXPECT_TRUE(
        whenCodeIsAsked("150.00").verificationCode.contains(QRegularExpression(u"^[0-9]{6}$"_s)));
}

TEST_F(ConfirmationTest, IssuesTheConfiguredCode)
{
    data.spending.code = u"4829"_s;
    EXPECT_EQ(whenCodeIsAsked("150.00").verificationCode, u"4829");
}

TEST_F(ConfirmationTest, IssuesNoneUnlessAsked)
{
    const ChequeFigures soft = whenAccepted(sale);
    SaleRequest request = nextSoft(sale, soft, amount("150.00"));
    EXPECT_EQ(whenAccepted(request).verificationCode, QString());
    request.confirmation = Confirmation{};
    EXPECT_EQ(whenAccepted(request).verificationCode, QString());
}

TEST_F(ConfirmationTest, IssuesNoneForNoPoints)
{
    EXPECT_EQ(whenCodeIsAsked("0.00").verificationCode, QString());
}

TEST_F(ConfirmationTest, WithTheIssuedCodeWritesOff)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    whenAccepted(registration(asked, "150.00", asked.verificationCode));
    thenBalanceIs("362.50");
}

TEST_F(ConfirmationTest, WithAnotherCodeIsRefused)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    thenRefused(registration(asked, "150.00", asked.verificationCode + u'0'),
        returncodes::wrongConfirmation);
    EXPECT_EQ(transactionCount(), 0u);
}

TEST_F(ConfirmationTest, WithoutACodeIsRefusedAboveTheLimit)
{
    const ChequeFigures soft = whenAccepted(sale);
    const ChequeFigures last = whenAccepted(nextSoft(sale, soft, amount("100.01")));
    thenRefused(registration(last, "100.01", {}), returncodes::wrongConfirmation);
    thenRefused(registration(last, "100.01", u"1234"_s), returncodes::wrongConfirmation);
    thenRefused(fiscal(sale, last, amount("100.01")), returncodes::wrongConfirmation);
}

TEST_F(ConfirmationTest, WithoutTheCodeThatWasIssuedIsRefusedWhereTheTillSpeaksOfConfirmation)
{
    const ChequeFigures asked = whenCodeIsAsked("100.01");
    SaleRequest request = registration(asked, "100.01", {});
    thenRefused(request, returncodes::wrongConfirmation);
    request.confirmation = Confirmation{false, false, asked.verificationCode};
    thenRefused(request, returncodes::wrongConfirmation);
}

TEST_F(ConfirmationTest, FromTheQueueNeedsNoCodeWhereOneWasIssuedForThesePoints)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    // The holder comes back before the queue does.
    desk().answer(BalanceRequest{sale.till, sale.card});
    whenAccepted(fiscal(sale, asked, amount("150.00")));
    thenBalanceIs("362.50");
}

TEST_F(ConfirmationTest, OfAChequeThatIsOverWaitsForNobody)
{
    whenCodeIsAsked("150.00");
    EXPECT_EQ(desk().waitingCodes(sale.card).size(), 1u);
    EXPECT_EQ(desk().waitingCodes().size(), 1u);
    EXPECT_TRUE(desk().waitingCodes(u"2900000000024"_s).empty());
    desk().answer(BalanceRequest{sale.till, sale.card});
    EXPECT_TRUE(desk().waitingCodes(sale.card).empty());
}

TEST_F(ConfirmationTest, FromTheQueueNeedsTheCodeForOtherPoints)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    thenRefused(fiscal(sale, asked, amount("150.01")), returncodes::wrongConfirmation);
}

TEST_F(ConfirmationTest, OfLargerPointsDoesNotStandInTheWayOfSmallerOnes)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    const ChequeFigures last = whenAccepted(nextSoft(sale, asked, amount("50.00")));
    whenAccepted(registration(last, "50.00", asked.verificationCode));
}

TEST_F(ConfirmationTest, IsNotNeededUpToTheLimit)
{
    const ChequeFigures soft = whenAccepted(sale);
    whenAccepted(fiscal(sale, soft, amount("100.00")));
    thenBalanceIs("415.00");
}

TEST_F(ConfirmationTest, OfferedByTheTillMustBeRightBelowTheLimitToo)
{
    const ChequeFigures asked = whenCodeIsAsked("50.00");
    thenRefused(registration(asked, "50.00", u"0"_s), returncodes::wrongConfirmation);
    whenAccepted(registration(asked, "50.00", asked.verificationCode));
}

TEST_F(ConfirmationTest, HoldsForThePointsItWasIssuedForOnly)
{
    const ChequeFigures asked = whenCodeIsAsked("50.00");
    thenRefused(
        registration(asked, "150.00", asked.verificationCode), returncodes::wrongConfirmation);
}

TEST_F(ConfirmationTest, IsGoneWhenTheChequeIsCalculatedAgain)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    whenAccepted(nextSoft(sale, asked, amount("150.00")));
    thenRefused(
        registration(asked, "150.00", asked.verificationCode), returncodes::wrongConfirmation);
}

TEST_F(ConfirmationTest, HoldsForItsMinutes)
{
    data.spending.codeMinutes = 5;
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    now = now.addSecs(5 * 60);
    thenRefused(
        registration(asked, "150.00", asked.verificationCode), returncodes::wrongConfirmation);
    EXPECT_TRUE(desk().waitingCodes().empty());
    now = now.addSecs(-1);
    EXPECT_EQ(desk().waitingCodes().size(), 1u);
    whenAccepted(registration(asked, "150.00", asked.verificationCode));
}

TEST_F(ConfirmationTest, HoldsForEverUnlessToldOtherwise)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    for (int attempt = 0; attempt < 20; ++attempt)
        thenRefused(registration(asked, "150.00", u"0"_s), returncodes::wrongConfirmation);
    now = now.addDays(1000);
    whenAccepted(registration(asked, "150.00", asked.verificationCode));
}

TEST_F(ConfirmationTest, IsVoidAfterSoManyWrongOnes)
{
    data.spending.codeAttempts = 2;
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    thenRefused(registration(asked, "150.00", u"0"_s), returncodes::wrongConfirmation);
    // None at all is no attempt.
    SaleRequest without = registration(asked, "150.00", {});
    thenRefused(without, returncodes::wrongConfirmation);
    without.confirmation->confirm = true;
    thenRefused(without, returncodes::wrongConfirmation);
    EXPECT_EQ(whenAnswered(without).outcome.message, u"Списание не подтверждено кодом");
    thenRefused(registration(asked, "150.00", u"1"_s), returncodes::wrongConfirmation);
    const ChequeAnswer late = whenAnswered(registration(asked, "150.00", asked.verificationCode));
    EXPECT_EQ(late.outcome.code, returncodes::wrongConfirmation);
    EXPECT_EQ(late.outcome.message, u"Код подтверждения больше не действует");
    EXPECT_TRUE(desk().waitingCodes().empty());
    desk().answer(BalanceRequest{sale.till, sale.card});
    const ChequeFigures again = whenCodeIsAsked("150.00");
    whenAccepted(registration(again, "150.00", again.verificationCode));
}

TEST_F(ConfirmationTest, OfAnotherChequeSuffersNoAttempts)
{
    data.spending.codeAttempts = 1;
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    const SaleRequest first = registration(asked, "150.00", asked.verificationCode);
    sale.number = u"18"_s;
    thenRefused(
        registration(whenCodeIsAsked("100.50"), "100.50", u"0"_s), returncodes::wrongConfirmation);
    whenAccepted(first);
}

TEST_F(ConfirmationTest, WithTheLastAttemptStillWritesOff)
{
    data.spending.codeAttempts = 2;
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    thenRefused(registration(asked, "150.00", u"0"_s), returncodes::wrongConfirmation);
    whenAccepted(registration(asked, "150.00", asked.verificationCode));
}

TEST_F(ConfirmationTest, FromTheQueueIsKnownBehindManyOtherCheques)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    const SaleRequest registered = fiscal(sale, asked, amount("150.00"));
    for (int other = 0; other <= Calculations::keptForATill; ++other) {
        sale.number = QString::number(1000 + other);
        whenAccepted(sale);
    }
    whenAccepted(registered);
}

TEST_F(ConfirmationTest, FromTheQueueIsNeverTooLate)
{
    data.spending.codeMinutes = 5;
    data.spending.codeAttempts = 1;
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    thenRefused(registration(asked, "150.00", u"0"_s), returncodes::wrongConfirmation);
    now = now.addDays(1);
    whenAccepted(fiscal(sale, asked, amount("150.00")));
}

TEST_F(ConfirmationTest, IsSpentOnce)
{
    const ChequeFigures asked = whenCodeIsAsked("150.00");
    const ChequeFigures sold = whenAccepted(registration(asked, "150.00", asked.verificationCode));
    whenAccepted(RollbackRequest{{}, sale.card, sold.transaction});
    thenRefused(
        registration(asked, "150.00", asked.verificationCode), returncodes::wrongConfirmation);
}

TEST_F(ConfirmationTest, IsOfNoInterestWhenNothingIsSpent)
{
    const ChequeFigures soft = whenAccepted(sale);
    whenAccepted(registration(soft, "0.00", u"stale"_s));
}

} // namespace
} // namespace emulator
