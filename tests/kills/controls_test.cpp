// What is wrong on purpose is found by the law that it breaks.

#include "tests/kills/day.h"
#include "tests/kills/laws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

namespace kills {

namespace {

struct Control
{
    const char *name;
    Wrong wrong;
    std::size_t cheques;
    QStringList (*law)(const Evidence &evidence);
};

void PrintTo(const Control &control, std::ostream *stream)
{
    *stream << control.name;
}

QString nameOf(QStringList (*law)(const Evidence &evidence))
{
    const auto found = std::find_if(laws::all.begin(), laws::all.end(),
        [law](const laws::Law &one) { return one.violations == law; });
    return QString::fromLatin1(found->name);
}

class ControlTest : public testing::TestWithParam<Control>
{ };

TEST_P(ControlTest, IsFoundByItsLaw)
{
    const DayPlan plan{7, 0, std::vector<bool>(GetParam().cheques, true)};
    const auto report = Day(plan, GetParam().wrong).run(false);
    const QString law = nameOf(GetParam().law);
    EXPECT_TRUE(std::any_of(report.findings.begin(), report.findings.end(),
        [&](const Finding &finding) { return finding.law == law; }));
}

constexpr std::size_t manyCheques = 10;
constexpr std::size_t fewCheques = 2; // since each exchange is slow

INSTANTIATE_TEST_SUITE_P(Each, ControlTest,
    testing::Values(
        Control{"queue is dropped", Wrong::QueueDropped, manyCheques, &laws::acknowledgedIsKept},
        Control{"service books twice", Wrong::BookedTwice, manyCheques, &laws::booksAgree},
        Control{"requests go out twice", Wrong::PostDoubled, manyCheques, &laws::copiesAreAttempts},
        Control{"till asks again", Wrong::AskedAgain, manyCheques, &laws::copiesAreAttempts},
        Control{"till is patient", Wrong::Patient, fewCheques, &laws::callsEndInTime}));

TEST(ControlTest, NothingWrongBreaksNoLaw)
{
    const DayPlan plan{7, 0, std::vector<bool>(manyCheques, true)};
    const auto report = Day(plan).run(false);
    EXPECT_TRUE(report.findings.empty()) << report.findings.front().sentence.toStdString();
}

} // namespace

} // namespace kills
