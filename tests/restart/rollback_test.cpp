// A cheque that the service has booked without the till's knowing is closed or cancelled after all:
// what was booked counts once, or is taken back.

#include "tests/restart/books.h"
#include "tests/restart/premises.h"
#include "tests/restart/relay.h"
#include "tests/restart/service.h"
#include "tests/restart/tillprocess.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

class RollbackTest : public testing::Test
{
public:
    RollbackTest()
        : m_premises(Scenario{u"rollback"_s, {}, {}})
        , m_service(m_premises)
        , m_relay(m_premises.servicePort())
    {
        m_premises.setLoyaltyPort(m_relay.port());
    }

    /// A till sells a cheque that is paid with points, and is killed when the service has booked
    /// it.
    void givenKillWhenTheServiceHasBooked()
    {
        TillProcess till(m_premises);
        sell(till);
        m_relay.strikeAt(1, Moment::Acted, [&till] { till.strikeDead(); });
        EXPECT_FALSE(till.tell(u"close"_s));
        EXPECT_DOUBLE_EQ(balance(), 434.9);
    }

    /// Everything comes back of a cheque that was paid with points, and the till is killed when the
    /// service has booked that.
    void givenKillWhenTheServiceHasBookedAReturn()
    {
        TillProcess till(m_premises);
        sell(till);
        till.tell(u"close"_s);
        till.tell(u"return 1"_s);
        m_relay.strikeAt(1, Moment::Acted, [&till] { till.strikeDead(); });
        EXPECT_FALSE(till.tell(u"close"_s));
        EXPECT_DOUBLE_EQ(balance(), 500.0);
    }

    /// A till sells a cheque that is paid with points, where it can be, and fails when it puts the
    /// registered or queued cheque away.
    void givenChequeThatIsStillOpen()
    {
        TillProcess till(m_premises);
        sell(till);
        whenItCannotBePutAway(till);
    }

    /// Sale and return are queued, and the till fails when it puts the return away.
    void givenQueuedReturnThatIsStillOpen()
    {
        TillProcess till(m_premises);
        sell(till);
        m_service.orderFault("fiscal swallow");
        till.tell(u"close"_s);
        till.tell(u"return 1"_s);
        m_service.orderFault("return swallow");
        whenItCannotBePutAway(till);
    }

    void whenItCannotBePutAway(TillProcess &till) const
    {
        const QString closed = m_premises.state() + u"/closed"_s;
        const QString aside = m_premises.state() + u"/aside"_s;
        ASSERT_TRUE(QDir().rename(closed, aside));
        ASSERT_TRUE(QFile(closed).open(QIODevice::WriteOnly));
        EXPECT_FALSE(till.tell(u"close"_s));
        ASSERT_TRUE(QFile::remove(closed));
        ASSERT_TRUE(QDir().rename(aside, closed));
    }

    static void sell(TillProcess &till)
    {
        for (const QString &command :
            {u"card 2900000000017"_s, u"add 1004 2"_s, u"total"_s, u"points 100"_s})
            till.tell(command);
    }

    [[nodiscard]] double balance() const
    {
        return m_service.get(u"cards/2900000000017"_s).at("balance").get<double>();
    }

    Premises m_premises;
    Service m_service;
    Relay m_relay;
};

TEST_F(RollbackTest, ABookingThatTheTillNeverHeardOfIsTakenBackWhenTheChequeIsCancelled)
{
    givenKillWhenTheServiceHasBooked();
    TillProcess till(m_premises);
    EXPECT_EQ(till.tell(u"cancel"_s)->at("document").at("state"), "cancelled");
    EXPECT_DOUBLE_EQ(balance(), 500.0);
    EXPECT_EQ(m_service.get(u"audit"_s).at("ok"), true);
}

TEST_F(RollbackTest, ABookingThatTheTillNeverHeardOfStandsWhileTheServiceIsAway)
{
    givenKillWhenTheServiceHasBooked();
    TillProcess till(m_premises);
    m_service.orderFault("all reset");
    const auto refused = till.tell(u"cancel"_s);
    EXPECT_EQ(refused->at("document").at("state"), "open");
    EXPECT_EQ(refused->at("notices").size(), 1u);
    EXPECT_EQ(till.tell(u"close"_s)->at("document").at("state"), "closed");
    till.tell(u"deliver"_s);
    EXPECT_DOUBLE_EQ(balance(), 434.9);
    EXPECT_EQ(m_service.get(u"transactions"_s).size(), 1u);
}

TEST_F(RollbackTest, TheCouponsOfABookingThatTheTillNeverHeardOfArePrinted)
{
    givenKillWhenTheServiceHasBooked();
    TillProcess till(m_premises);
    const auto closed = till.tell(u"close"_s);
    ASSERT_EQ(closed->at("printed").size(), 1u);
    EXPECT_EQ(closed->at("printed").at(0).at("data").at("Number"), "9901000000018");
}

TEST_F(RollbackTest, ACancelledRegistrationIsTakenBackOnce)
{
    givenChequeThatIsStillOpen();
    EXPECT_DOUBLE_EQ(balance(), 434.9);

    TillProcess till(m_premises);
    const auto shown = till.tell(u"show"_s);
    ASSERT_TRUE(shown);
    EXPECT_EQ(shown->at("document").at("state"), "open");
    EXPECT_EQ(shown->at("document").at("card").at("operationId"), "");
    const auto cancelled = till.tell(u"cancel"_s);
    ASSERT_TRUE(cancelled);
    EXPECT_EQ(cancelled->at("result"), true);
    EXPECT_DOUBLE_EQ(balance(), 500.0);
    EXPECT_EQ(m_service.get(u"transactions"_s).at(0).at("rolledBack"), true);
    EXPECT_EQ(m_service.get(u"audit"_s).at("ok"), true);
}

// A rollback that does not get through leaves the cheque as it is, and can be tried again.
TEST_F(RollbackTest, ACancelThatDoesNotReachTheServiceCanBeRepeated)
{
    givenChequeThatIsStillOpen();
    TillProcess till(m_premises);
    for (const char *fault : {"rollback reset", "rollback lose", "rollback code 80001"}) {
        m_service.orderFault(fault);
        const auto refused = till.tell(u"cancel"_s);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->at("result"), false);
        EXPECT_EQ(refused->at("document").at("state"), "open");
    }
    EXPECT_EQ(till.tell(u"cancel"_s)->at("document").at("state"), "cancelled");
    EXPECT_DOUBLE_EQ(balance(), 500.0);
    EXPECT_EQ(m_service.get(u"audit"_s).at("ok"), true);
}

// The cashier may as well close it: it is not booked again.
TEST_F(RollbackTest, ARegistrationThatIsClosedAfterAllIsBookedOnce)
{
    givenChequeThatIsStillOpen();
    TillProcess till(m_premises);
    const auto closed = till.tell(u"close"_s);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->at("document").at("state"), "closed");
    EXPECT_EQ(closed->at("printed").size(), 1u);
    EXPECT_DOUBLE_EQ(closed->at("document").at("points").at("earned").get<double>(), 34.9);
    EXPECT_DOUBLE_EQ(balance(), 434.9);
    EXPECT_EQ(m_service.get(u"transactions"_s).size(), 1u);
}

// A return that is booked cannot be taken back, so it is not cancelled either.
TEST_F(RollbackTest, AReturnThatMayBeBookedIsClosedAndBookedOnce)
{
    givenKillWhenTheServiceHasBookedAReturn();
    TillProcess till(m_premises);
    const auto refused = till.tell(u"cancel"_s);
    EXPECT_EQ(refused->at("document").at("state"), "open");
    EXPECT_EQ(refused->at("notices").size(), 1u);
    EXPECT_EQ(till.tell(u"close"_s)->at("document").at("state"), "closed");
    EXPECT_EQ(m_service.get(u"transactions"_s).size(), 2u);
    EXPECT_DOUBLE_EQ(balance(), 500.0);
    EXPECT_EQ(m_service.get(u"audit"_s).at("ok"), true);
}

// What is in the queue will be booked, whatever the till does with its cheque.
TEST_F(RollbackTest, AChequeThatIsQueuedIsClosedAndBookedOnce)
{
    m_service.orderFault("balance swallow");
    givenChequeThatIsStillOpen();
    EXPECT_FALSE(undeliveredMessages(m_premises.state()).isEmpty());
    TillProcess till(m_premises);
    const auto refused = till.tell(u"cancel"_s);
    EXPECT_EQ(refused->at("document").at("state"), "open");
    EXPECT_EQ(refused->at("notices").size(), 1u);
    EXPECT_EQ(till.tell(u"close"_s)->at("document").at("state"), "closed");
    till.tell(u"deliver"_s);
    EXPECT_TRUE(undeliveredMessages(m_premises.state()).isEmpty());
    EXPECT_EQ(m_service.get(u"transactions"_s).size(), 1u);
}

// Refused now, since its sale waits as well: what is in the queue will be booked all the same.
TEST_F(RollbackTest, AQueuedReturnThatIsRefusedNowIsNotCancelled)
{
    givenQueuedReturnThatIsStillOpen();
    TillProcess till(m_premises);
    EXPECT_EQ(till.tell(u"close"_s)->at("document").at("state"), "open");
    EXPECT_EQ(till.tell(u"cancel"_s)->at("document").at("state"), "open");
    till.tell(u"deliver"_s);
    EXPECT_EQ(till.tell(u"close"_s)->at("document").at("state"), "closed");
    EXPECT_EQ(m_service.get(u"transactions"_s).size(), 2u);
    EXPECT_DOUBLE_EQ(balance(), 500.0);
}

TEST_F(RollbackTest, AReturnThatIsRefusedForGoodCanBeCancelled)
{
    givenQueuedReturnThatIsStillOpen();
    TillProcess till(m_premises);
    m_service.orderFault("return code 89184 2");
    till.tell(u"deliver"_s);
    EXPECT_EQ(till.tell(u"close"_s)->at("document").at("state"), "open");
    EXPECT_EQ(till.tell(u"cancel"_s)->at("document").at("state"), "cancelled");
    EXPECT_EQ(m_service.get(u"transactions"_s).size(), 1u);
}

} // namespace

} // namespace restart
