#include "host/framework/basicexception.h"
#include "host/framework/finally.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(Finally, RunsWhenItsScopeIsLeft)
{
    int runs = 0;
    {
        const Finally guard([&runs] { ++runs; });
        EXPECT_EQ(runs, 0);
    }
    EXPECT_EQ(runs, 1);
}

TEST(Finally, RunsWhenItsScopeIsLeftByAnException)
{
    bool done = false;
    EXPECT_THROW(
        {
            const Finally guard([&done] { done = true; });
            throw std::runtime_error("gone");
        },
        std::runtime_error);
    EXPECT_TRUE(done);
}

TEST(BasicException, CarriesItsMessageAndAFlag)
{
    BasicException error(tr::Tr(u"id"_s, u"Ошибка %1"_s).arg(u"7"_s));

    EXPECT_EQ(error.tr().id(), u"id"_s);
    EXPECT_STREQ(error.what(), "Ошибка 7");
    EXPECT_FALSE(error.flag());
    error.setFlag(true);
    EXPECT_TRUE(error.flag());
}

} // namespace
