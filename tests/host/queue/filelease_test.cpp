// The leases of a queue's file: they end with the deliverer's process, or by this machine's clock.

#include "host/queue/leaseowner.h"
#include "host/storage/filelock.h"
#include "tests/host/queue/leasefixture.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The name of a deliverer whose process has ended.
QString deadOwner()
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    const QString own = leaseowner::makeName();
    return QString::number(child) + own.mid(own.indexOf(u'@'));
}

TEST(LeaseOwnerTest, EveryNameIsAnotherOne)
{
    EXPECT_NE(leaseowner::makeName(), leaseowner::makeName());
}

TEST(LeaseOwnerTest, NamesProcessAndHost)
{
    const QString begin
        = u"%1@%2 started "_s.arg(QString::number(::getpid()), QSysInfo::machineHostName());
    EXPECT_TRUE(leaseowner::makeName().startsWith(begin));
}

TEST(LeaseOwnerTest, LivingProcessIsNotGone)
{
    EXPECT_FALSE(leaseowner::isGone(leaseowner::makeName()));
}

TEST(LeaseOwnerTest, EndedProcessIsGone)
{
    EXPECT_TRUE(leaseowner::isGone(deadOwner()));
}

TEST(LeaseOwnerTest, ProcessWhoseNumberWasGivenAgainIsGone)
{
    QString name = leaseowner::makeName();
    EXPECT_TRUE(leaseowner::isGone(name.replace(u" started "_s, u" started 1"_s)));
}

TEST(LeaseOwnerTest, NothingIsKnownOfOtherHostsAndNamespacesAndNames)
{
    const QString dead = deadOwner();
    EXPECT_FALSE(leaseowner::isGone(QString(dead).replace(u'@', u"@other-"_s)));
    EXPECT_FALSE(leaseowner::isGone(QString(dead).replace(u" in "_s, u" in 9"_s)));
    EXPECT_FALSE(leaseowner::isGone(u"somebody"_s));
    EXPECT_FALSE(leaseowner::isGone({}));
}

TEST(LeaseOwnerTest, LeaseIsOverAtItsEnd)
{
    EXPECT_FALSE(leaseowner::isOver(u"somebody"_s, noon, noon.addMSecs(-1)));
    EXPECT_TRUE(leaseowner::isOver(u"somebody"_s, noon, noon));
    EXPECT_TRUE(leaseowner::isOver(u"somebody"_s, {}, noon));
    EXPECT_TRUE(leaseowner::isOver(deadOwner(), noon, noon.addMSecs(-1)));
}

class FileLeaseTest : public LeaseFixture
{
protected:
    static void givenLeaseOf(const QString &owner)
    {
        ask(u"UPDATE messages SET lease_owner = ? WHERE state = 'sending'"_s, {owner});
    }
};

TEST_F(FileLeaseTest, LeaseNamesOwnerAndEnd)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    static_cast<void>(one.checkOut(wanted));
    const auto lease = ask(u"SELECT lease_owner, lease_until, last_attempt FROM messages"_s);
    EXPECT_FALSE(leaseowner::isGone(lease.at(0).toString()));
    EXPECT_EQ(lease.at(1), u"2024-11-21T12:02:00.000Z"_s);
    EXPECT_EQ(lease.at(2), u"2024-11-21T12:00:00.000Z"_s);
}

TEST_F(FileLeaseTest, MessageOfADeadDelivererIsTakenUpAtOnce)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    static_cast<void>(one.checkOut(wanted));
    givenLeaseOf(deadOwner());
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"a"_s);
    EXPECT_EQ(stateOf(u"a"_s), (QVariantList{u"sending"_s, 2, 1}));
}

TEST_F(FileLeaseTest, MessageOfASilentDelivererIsTakenUpWhenItsLeaseEnds)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    static_cast<void>(one.checkOut(wanted));
    wanted.now = noon.addMSecs(leaseowner::leaseLength.count() - 1);
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"none"_s);
    wanted.now = wanted.now.addMSecs(1);
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"a"_s);
}

TEST_F(FileLeaseTest, LeaseHoldsWhileTheClockIsSetBack)
{
    givenMessageOfLane(u"a"_s, u"1"_s);
    static_cast<void>(one.checkOut(wanted));
    wanted.now = noon.addSecs(-3600);
    EXPECT_EQ(idOf(other.checkOut(wanted)), u"none"_s);
}

TEST_F(FileLeaseTest, WhileAnotherOneDeliversNothingIsSent)
{
    givenMessage(u"one"_s);
    FileLock lock(databaseFile() + u".lock"_s);
    ASSERT_TRUE(lock.tryLock());
    EXPECT_TRUE(whenDelivered().busy);
    EXPECT_TRUE(exchanges().isEmpty());
    EXPECT_EQ(queue()->waiting(), 1);
}

} // namespace
