// Nothing leaves the plug-in by exception that would end the till.

#include "host/framework/basicexception.h"
#include "host/storage/statefolder.h"
#include "tests/support/hostfixture.h"
#include "till/core/pluginguard.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PluginGuardTest : public HostFixture, public testing::Test
{
public:
    QString journal() const
    {
        QFile file(Singleton<StateFolder>::instance()->journal());
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    till::Outcome outcome;
};

TEST_F(PluginGuardTest, ACallThatReturnsLeavesNoTrace)
{
    EXPECT_TRUE(till::guarded(outcome, u"request"_s, [] {}));
    EXPECT_FALSE(outcome.refusal);
    EXPECT_EQ(journal(), QString());
}

TEST_F(PluginGuardTest, TheHostsExceptionKeepsMessageAndFlag)
{
    BasicException error(tr::Tr(u"someId"_s, u"Текст"_s));
    error.setFlag(true);
    EXPECT_FALSE(till::guarded(outcome, u"request"_s, [&] { throw error; }));
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->message.id(), u"someId"_s);
    EXPECT_EQ(outcome.refusal->message.ru(), u"Текст"_s);
    EXPECT_TRUE(outcome.refusal->flag);
}

TEST_F(PluginGuardTest, AStandardExceptionBecomesItsText)
{
    till::guarded(outcome, u"request"_s, [] { throw std::out_of_range("too far"); });
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->message.id(), tr::undefined);
    EXPECT_EQ(outcome.refusal->message.ru(), u"too far"_s);
}

TEST_F(PluginGuardTest, AProgramWithoutMemoryEnds)
{
    EXPECT_THROW(
        till::guarded(outcome, u"request"_s, [] { throw std::bad_alloc(); }), std::bad_alloc);
    EXPECT_FALSE(outcome.refusal);
}

TEST_F(PluginGuardTest, AnythingElseIsCaughtToo)
{
    till::guarded(outcome, u"request"_s, [] { throw 7; });
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->message.ru(), u"Непредвиденная ошибка подключаемого модуля"_s);
}

TEST_F(PluginGuardTest, ItIsJournalledWithItsOperation)
{
    till::guarded(outcome, u"spendPoints"_s, [] { throw std::runtime_error("lost"); });
    EXPECT_TRUE(journal().contains(u"\"spendPoints\""));
    EXPECT_TRUE(journal().contains(u"\"lost\""));
    EXPECT_TRUE(journal().contains(u"\"exception\""));
}

TEST_F(PluginGuardTest, TheFirstRefusalIsKept)
{
    till::guarded(outcome, u"a"_s, [] { throw std::runtime_error("first"); });
    till::guarded(outcome, u"b"_s, [] { throw std::runtime_error("second"); });
    EXPECT_EQ(outcome.refusal->message.ru(), u"first"_s);
}

} // namespace
