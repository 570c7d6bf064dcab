// What had been acknowledged is there after every power cut, and nothing is torn.

#include "tests/powercut/cuts.h"

#include <gtest/gtest.h>

#include <iostream>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr std::size_t sampleCuts = 100;
constexpr std::size_t manyCuts = 1'000;
// Each of the first costs a start of the till.
constexpr std::size_t sampleOfTwo = 4;
constexpr std::size_t manyOfTwo = 200;
constexpr std::size_t secondCuts = 5;
constexpr quint32 usualSeed = 20'241'121;

struct Work
{
    const char *name;
    Law law;
};

void PrintTo(const Work &work, std::ostream *stream)
{
    *stream << work.name;
}

class PowerCutTest : public testing::TestWithParam<Work>
{
protected:
    void whenThePowerGoes(std::size_t count)
    {
        const Recording recording = recorded();
        wrong = violations(recording, cutsOf(recording, count, seed), seed, GetParam().law);
    }
    void whenThePowerGoesTwice(std::size_t count)
    {
        const Recording recording = recorded();
        wrong = violationsOfTwo(
            recording, cutsOf(recording, count, seed), secondCuts, seed, GetParam().law);
    }
    void TearDown() override
    {
        for (const QString &sentence : std::as_const(wrong))
            ADD_FAILURE() << sentence.toStdString();
    }

    QStringList wrong;

private:
    [[nodiscard]] Recording recorded() const
    {
        const Recording recording = recordSubject(QString::fromUtf8(GetParam().name), seed);
        std::cout << "powercut: " << recording.records.size() << " records, seed " << seed
                  << std::endl;
        return recording;
    }
    // POWERCUT_SEED is for a look at other courses, and at one that failed.
    static quint32 wantedSeed()
    {
        bool isGiven = false;
        const quint32 given = qEnvironmentVariable("POWERCUT_SEED").toUInt(&isGiven);
        return isGiven ? given : usualSeed;
    }

    const quint32 seed = wantedSeed();
};

TEST_P(PowerCutTest, Sample)
{
    whenThePowerGoes(sampleCuts);
}

TEST_P(PowerCutTest, Many)
{
    whenThePowerGoes(manyCuts);
}

TEST_P(PowerCutTest, SampleOfTwo)
{
    whenThePowerGoesTwice(sampleOfTwo);
}

TEST_P(PowerCutTest, ManyOfTwo)
{
    whenThePowerGoesTwice(manyOfTwo);
}

INSTANTIATE_TEST_SUITE_P(Each, PowerCutTest,
    testing::Values(Work{"documents", laws::documentsAreKept}, Work{"journal", laws::journalIsKept},
        Work{"queue", laws::messagesAreKept}),
    [](const auto &work) { return std::string(work.param.name); });

} // namespace

} // namespace powercut
