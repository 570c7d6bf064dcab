// Colours only where a terminal shows them.

#include "till/console/paint.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;
using till::Paint;

namespace {

TEST(PaintTest, ColoursOrLeavesAlone)
{
    EXPECT_EQ(Paint(true)(Paint::Colour::Red, u"x"_s), u"\033[31mx\033[0m"_s);
    EXPECT_EQ(Paint(false)(Paint::Colour::Red, u"x"_s), u"x"_s);
}

class PaintOnTerminalTest : public testing::Test
{
public:
    PaintOnTerminalTest()
    {
        int other = -1;
        EXPECT_EQ(openpty(&m_outer, &other, nullptr, nullptr, nullptr), 0);
        terminal = fdopen(other, "w");
        qunsetenv("NO_COLOR");
    }
    ~PaintOnTerminalTest() override
    {
        std::fclose(terminal);
        ::close(m_outer);
        qunsetenv("NO_COLOR");
    }

    std::FILE *terminal = nullptr;

private:
    int m_outer = -1;
};

TEST_F(PaintOnTerminalTest, ATerminalHasColours)
{
    EXPECT_NE(Paint::forStream(terminal)(Paint::Colour::Bold, u"x"_s), u"x"_s);
}

TEST_F(PaintOnTerminalTest, NoColorIsHonoured)
{
    qputenv("NO_COLOR", "1");
    EXPECT_EQ(Paint::forStream(terminal)(Paint::Colour::Bold, u"x"_s), u"x"_s);
}

TEST_F(PaintOnTerminalTest, AFileHasNone)
{
    std::FILE *file = std::fopen("/dev/null", "w");
    EXPECT_EQ(Paint::forStream(file)(Paint::Colour::Bold, u"x"_s), u"x"_s);
    std::fclose(file);
}

} // namespace
