// Scripts: what stops them, what does not, and how it is told.

#include "tests/till/support/scriptfixture.h"
#include "till/script/scriptrunner.h"

#include <sstream>

using namespace Qt::StringLiterals;
using till::ExitStatus;

namespace {

/// A script on a disk that fails behind its first line.
class FailingDisk : public std::stringbuf
{
public:
    FailingDisk()
        : std::stringbuf("add 1001\n")
    { }

protected:
    int_type underflow() override { throw std::runtime_error("the disk has failed"); }
};

class ScriptRunnerTest : public ScriptFixture
{
public:
    ExitStatus whenRun(const std::string &text)
    {
        std::istringstream script(text);
        return till::runScript(script, u"sale.till"_s, interpreter, errors);
    }

    std::ostringstream errors;
};

TEST_F(ScriptRunnerTest, AScriptWhoseExpectationsHoldSucceedsSilently)
{
    EXPECT_EQ(whenRun("add 1001\nexpect document.sum == 45.9\n"), ExitStatus::Success);
    EXPECT_EQ(errors.str(), "");
}

TEST_F(ScriptRunnerTest, AnEmptyScriptSucceeds)
{
    EXPECT_EQ(whenRun(""), ExitStatus::Success);
}

TEST_F(ScriptRunnerTest, AScriptThatCannotBeReadToItsEndIsAnError)
{
    FailingDisk disk;
    std::istream script(&disk);
    EXPECT_EQ(till::runScript(script, u"sale.till"_s, interpreter, errors), ExitStatus::CannotDo);
    EXPECT_EQ(errors.str(),
        "sale.till:2: the script cannot be read any further; check its file and the disk\n");
    EXPECT_EQ(document()->getGoods().size(), 1);
}

TEST_F(ScriptRunnerTest, AFailedExpectationIsToldAndTheScriptGoesOn)
{
    EXPECT_EQ(whenRun("add 1001\nexpect document.sum == 1\nadd 1002"), ExitStatus::NotAllDone);
    EXPECT_EQ(errors.str(), "sale.till:2: expected document.sum == 1, but it is 45.9\n");
    EXPECT_EQ(document()->getGoods().size(), 2);
}

TEST_F(ScriptRunnerTest, ACommandThatCannotBeDoneStopsTheScript)
{
    EXPECT_EQ(whenRun("\nclose\nadd 1001\n"), ExitStatus::CannotDo);
    EXPECT_EQ(errors.str(), "sale.till:2: no document is open; open a sale or a return\n");
    EXPECT_FALSE(document());
}

TEST_F(ScriptRunnerTest, AnErrorWeighsMoreThanAFailedExpectation)
{
    EXPECT_EQ(whenRun("show\nexpect line == 9\nbogus\n"), ExitStatus::CannotDo);
}

TEST_F(ScriptRunnerTest, ARefusalIsAnOutcomeAndNoError)
{
    loyalty->behaviour[u"identifyByCard"_s] = [] { return false; };
    EXPECT_EQ(whenRun("card 290\nexpect result == false\n"), ExitStatus::Success);
}

TEST_F(ScriptRunnerTest, TheEndOfAScriptLeavesTheDocumentOpen)
{
    whenRun("add 1001");
    EXPECT_TRUE(store->loadOpen());
}

TEST_F(ScriptRunnerTest, ByteOrderMarkAndCarriageReturnsAreNoTrouble)
{
    EXPECT_EQ(whenRun("\xEF\xBB\xBF"
                      "add 1001\r\nadd 1002\r\n"),
        ExitStatus::Success);
    EXPECT_EQ(document()->getGoods().size(), 2);
    EXPECT_EQ(object()["command"], "add 1002");
}

TEST_F(ScriptRunnerTest, ALineThatIsNoUtf8IsAnError)
{
    EXPECT_EQ(whenRun("answer text \xC4\xE0\n"), ExitStatus::CannotDo);
    EXPECT_EQ(errors.str(), "sale.till:1: the line is not in UTF-8; save the script in UTF-8\n");
}

} // namespace
