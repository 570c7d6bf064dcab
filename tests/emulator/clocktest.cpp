#include "tests/emulator/support/desktest.h"
#include "tests/emulator/support/zone.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

/// Repeats and returns while the clock or the zone of the service's machine changes.
class ClockTest : public DeskTest
{
protected:
    static SaleRequest cheque() { return offlineFiscal(u"17"_s, {{"1001", "100.00", "2.000"}}); }

    void givenTime(int year, int month, int day, int hour, int minute)
    {
        now = QDateTime(QDate(year, month, day), QTime(hour, minute), Qt::UTC);
    }

    ReturnRequest returnOn(const QDate &day)
    {
        ReturnRequest returning
            = returnOf(u"17"_s, u"R%1"_s.arg(++m_returns), {{"1001", "100.00", "1.000"}});
        returning.sale.date = day;
        return returning;
    }

    /// Seven days of 24 hours, to the millisecond.
    void thenIsKnownForExactlySevenDays()
    {
        const QByteArray first = writeAnswer(desk().answer(cheque()));
        const QDateTime registered = now;
        now = registered.addSecs(7 * 24 * 3600).addMSecs(-1);
        EXPECT_EQ(whenRepeated(cheque()), first);
        now = now.addMSecs(1);
        EXPECT_EQ(whenAccepted(cheque()).transaction, u"0000000002");
    }

private:
    int m_returns = 0;
};

TEST_F(ClockTest, SevenDaysAreSevenTimesTwentyFourHoursOverTheHourSetBack)
{
    const Zone zone("Europe/Berlin");
    givenTime(2024, 10, 24, 12, 0);
    thenIsKnownForExactlySevenDays();
}

TEST_F(ClockTest, SevenDaysAreSevenTimesTwentyFourHoursOverTheHourSetForward)
{
    const Zone zone("Europe/Berlin");
    givenTime(2024, 3, 28, 12, 0);
    thenIsKnownForExactlySevenDays();
}

TEST_F(ClockTest, TheHourThatComesTwiceMakesNoNewCheque)
{
    const Zone zone("Europe/Berlin");
    givenTime(2024, 10, 27, 0, 30);
    const ChequeFigures first = whenAccepted(cheque());
    now = now.addSecs(3600);
    EXPECT_EQ(now.toLocalTime().time(), first.processed.time()) << "the same time by the wall";
    whenRepeated(cheque());
    EXPECT_EQ(transactionCount(), 1u);
}

TEST_F(ClockTest, ARepeatInAnotherZoneGetsTheFirstAnswer)
{
    QByteArray first;
    givenTime(2024, 3, 5, 22, 30);
    {
        const Zone zone("Europe/Moscow");
        first = writeAnswer(desk().answer(cheque()));
    }
    const Zone zone("America/New_York");
    EXPECT_EQ(whenRepeated(cheque()), first);
}

TEST_F(ClockTest, AReturnNamesTheDayOfTheAnswerWhateverTheZoneIsNow)
{
    givenTime(2024, 3, 5, 22, 30);
    {
        const Zone zone("Europe/Moscow");
        EXPECT_EQ(whenAccepted(cheque()).processed.date(), QDate(2024, 3, 6));
    }
    for (const char *name : {"Europe/Moscow", "UTC", "Pacific/Auckland"}) {
        SCOPED_TRACE(name);
        const Zone zone(name);
        thenRefused(returnOn(QDate(2024, 3, 5)), returncodes::unknownSale);
    }
    const Zone zone("America/New_York");
    whenAccepted(returnOn(QDate(2024, 3, 6)));
}

TEST_F(ClockTest, BeforeAndAfterMidnightAreDifferentDaysOfReturn)
{
    const Zone zone("Europe/Moscow");
    now = QDateTime(QDate(2024, 3, 5), QTime(20, 59, 59, 999), Qt::UTC);
    whenAccepted(cheque());
    now = now.addMSecs(1);
    whenRepeated(cheque());
    thenRefused(returnOn(QDate(2024, 3, 6)), returncodes::unknownSale);
    whenAccepted(returnOn(QDate(2024, 3, 5)));
}

TEST_F(ClockTest, AClockThatRanAheadLeavesTheLatestChequeInForce)
{
    const SaleRequest other = offlineFiscal(u"17"_s, {{"1002", "50.00", "1.000"}});
    const QDateTime right = now;
    whenAccepted(cheque());
    now = right.addDays(8);
    const QByteArray latest = writeAnswer(desk().answer(other));
    now = right.addSecs(3600);
    EXPECT_EQ(whenRepeated(other), latest);
    thenRefused(cheque(), returncodes::otherPositions);
}

TEST_F(ClockTest, AReusedNumberIsKnownForSevenDaysOfItsOwn)
{
    const SaleRequest other = offlineFiscal(u"17"_s, {{"1002", "50.00", "1.000"}});
    whenAccepted(cheque());
    now = now.addDays(7);
    whenAccepted(other);
    now = now.addDays(6);
    whenRepeated(other);
    thenRefused(cheque(), returncodes::otherPositions);
    now = now.addDays(1);
    whenAccepted(cheque());
    EXPECT_EQ(transactionCount(), 3u);
}

} // namespace
} // namespace emulator
