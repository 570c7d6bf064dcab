// The tally of a fuzz target: what is counted, where it stands, and what ends the process.

#include "fuzz/measure.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>

namespace {

constexpr const char *tallyVariable = "KORVEL_FUZZ_TALLY";
constexpr const char *limitVariable = "KORVEL_FUZZ_MILLISECONDS";

bool isLong(const QByteArray &input)
{
    return input.size() > 1;
}

/// Takes some 20 ms of processor time for an input, none for the empty one.
bool dawdles(const QByteArray &input)
{
    constexpr std::clock_t time = CLOCKS_PER_SEC / 50;
    const std::clock_t begun = std::clock();
    while (!input.isEmpty() && std::clock() - begun < time) { }
    return true;
}

void give(fuzz::Target target, const QByteArray &input)
{
    fuzz::measure(reinterpret_cast<const std::uint8_t *>(input.constData()),
        static_cast<std::size_t>(input.size()), target);
}

fuzz::Tally tallyIn(const QString &fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    fuzz::Tally tally;
    EXPECT_EQ(file.read(reinterpret_cast<char *>(&tally), sizeof(tally)), sizeof(tally));
    return tally;
}

/// Each in a process of its own: the variables are read once.
class MeasureDeathTest : public testing::Test
{
protected:
    MeasureDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
    ~MeasureDeathTest() override
    {
        unsetenv(tallyVariable);
        unsetenv(limitVariable);
    }
    [[nodiscard]] QString tallyFile() const { return m_folder.filePath(QStringLiteral("tally")); }
    void givenTallyFile() const
    {
        // The process of a death test comes here too, with the file that it is to write.
        setenv(tallyVariable, tallyFile().toLocal8Bit().constData(), 0);
    }

private:
    QTemporaryDir m_folder;
};

[[noreturn]] void giveThreeAndEnd(int status)
{
    for (const char *input : {"a", "ab", "abc"})
        give(isLong, input);
    std::_Exit(status);
}

} // namespace

TEST_F(MeasureDeathTest, InputsAndThosePastTheParserAreCounted)
{
    give(isLong, "a");
    const fuzz::Tally before = fuzz::tally();
    give(isLong, "ab");
    give(isLong, "b");
    EXPECT_EQ(fuzz::tally().executions - before.executions, 2U);
    EXPECT_EQ(fuzz::tally().pastParser - before.pastParser, 1U);
}

TEST_F(MeasureDeathTest, TheFileOutlivesAnEndAtOnceAndTheNextRunGoesOn)
{
    givenTallyFile();
    constexpr int status = 7;
    EXPECT_EXIT(giveThreeAndEnd(status), testing::ExitedWithCode(status), "");
    EXPECT_EXIT(giveThreeAndEnd(status), testing::ExitedWithCode(status), "");
    EXPECT_EQ(tallyIn(tallyFile()).executions, 6U);
    EXPECT_EQ(tallyIn(tallyFile()).pastParser, 4U);
}

TEST_F(MeasureDeathTest, ProcessesThatCountAtOnceTakeNothingFromOneAnother)
{
    givenTallyFile();
    constexpr std::uint64_t each = 200'000;
    const auto countBesideAnother = [] {
        const bool isParent = fork() != 0;
        for (std::uint64_t input = 0; input < each; ++input)
            give(isLong, "ab");
        if (isParent)
            wait(nullptr);
        std::_Exit(0);
    };
    EXPECT_EXIT(countBesideAnother(), testing::ExitedWithCode(0), "");
    EXPECT_EQ(tallyIn(tallyFile()).executions, 2 * each);
    EXPECT_EQ(tallyIn(tallyFile()).pastParser, 2 * each);
}

TEST_F(MeasureDeathTest, AnInputThatTakesTooLongEndsTheProcess)
{
    setenv(limitVariable, "1", 1);
    EXPECT_DEATH(give(dawdles, "slow"), "us of processor time\n.*takes longer than is allowed");
}

TEST_F(MeasureDeathTest, TheSlowestIsKept)
{
    givenTallyFile();
    const auto dawdle = [] {
        give(dawdles, "slow");
        give(isLong, "quick");
        std::_Exit(0);
    };
    EXPECT_EXIT(dawdle(), testing::ExitedWithCode(0), "");
    constexpr std::uint64_t least = 10'000;
    EXPECT_GE(tallyIn(tallyFile()).slowestMicroseconds, least);
}

TEST_F(MeasureDeathTest, WithoutALimitTheSlowPass)
{
    const auto dawdle = [] {
        give(dawdles, "slow");
        std::_Exit(0);
    };
    EXPECT_EXIT(dawdle(), testing::ExitedWithCode(0), "");
}

TEST_F(MeasureDeathTest, ABrokenPromiseEndsTheProcess)
{
    EXPECT_DEATH(fuzz::require(false, "two is one"), "broken: two is one");
    fuzz::require(true, "one is one");
}
