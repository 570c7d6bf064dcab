#include "host/framework/currenttime.h"
#include "host/framework/mockfactory.h"
#include "host/framework/singleton.h"

#include <gtest/gtest.h>

namespace {

struct Plain
{
    virtual ~Plain() = default;
    [[nodiscard]] virtual int value() const { return 1; }
    bool touched = false;
};

struct Replacement : Plain
{
    [[nodiscard]] int value() const override { return 2; }
};

class FrozenTime : public CurrentTime
{
public:
    [[nodiscard]] QDateTime currentDateTime() const override
    {
        return QDateTime::fromSecsSinceEpoch(0);
    }
};

class FactoriesTest : public testing::Test
{
protected:
    ~FactoriesTest() override
    {
        MockFactory<Plain>::setCreator({});
        MockFactory<CurrentTime>::setCreator({});
        Singleton<Plain>::reset();
    }
};

TEST_F(FactoriesTest, MakesAFreshObjectAtEachCall)
{
    const auto first = MockFactory<Plain>::create();
    const auto second = MockFactory<Plain>::create();

    EXPECT_NE(first, second);
    EXPECT_EQ(first->value(), 1);
}

TEST_F(FactoriesTest, MakesWhatTheReplacedMakerMakes)
{
    MockFactory<Plain>::setCreator([] { return QSharedPointer<Replacement>::create(); });
    EXPECT_EQ(MockFactory<Plain>::create()->value(), 2);

    MockFactory<Plain>::setCreator({});
    EXPECT_EQ(MockFactory<Plain>::create()->value(), 1);
}

TEST_F(FactoriesTest, ReplacesTheHostsOwnObjectsForTheWholeProcess)
{
    MockFactory<CurrentTime>::setCreator([] { return QSharedPointer<FrozenTime>::create(); });

    EXPECT_EQ(MockFactory<CurrentTime>::create()->currentDateTime().toSecsSinceEpoch(), 0);
}

TEST_F(FactoriesTest, GivesTheSameSingletonUntilItIsReset)
{
    Plain *const first = Singleton<Plain>::instance();
    first->touched = true;
    EXPECT_EQ(Singleton<Plain>::instance(), first);

    Singleton<Plain>::reset();
    EXPECT_FALSE(Singleton<Plain>::instance()->touched);
}

TEST_F(FactoriesTest, TakesASubclassAsSingleton)
{
    Singleton<Plain>::set(QSharedPointer<Replacement>::create());

    EXPECT_EQ(Singleton<Plain>::instance()->value(), 2);
}

} // namespace
