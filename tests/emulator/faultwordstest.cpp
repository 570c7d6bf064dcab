#include "emulator/faults/faultwords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

struct Row
{
    const char16_t *words;
    const char16_t *understood;
};

class FaultWords : public testing::TestWithParam<Row>
{ };

TEST_P(FaultWords, AreUnderstoodInFull)
{
    const QString words = QString::fromUtf16(GetParam().words);
    EXPECT_EQ(faultWords(parseFaultWords(words)), QString::fromUtf16(GetParam().understood));
}

INSTANTIATE_TEST_SUITE_P(Table, FaultWords,
    testing::Values(Row{u"balance delay 500", u"balance delay 500 1"},
        Row{u"soft half", u"soft half 1"}, Row{u"fiscal reset 3", u"fiscal reset 3"},
        Row{u"return not-xml always", u"return not-xml always"},
        Row{u"rollback status 503 2", u"rollback status 503 2"},
        Row{u"all code 80001", u"all code 80001 1"}, Row{u"soft code -5 2", u"soft code -5 2"},
        Row{u"  fiscal \t lose\n", u"fiscal lose 1"},
        Row{u"all unauthorised always", u"all unauthorised always"}, Row{u"refuse 2", u"refuse 2"},
        Row{u"refuse", u"refuse 1"}, Row{u"silence 2", u"silence 2"},
        Row{u"stall 300", u"stall 300 1"}, Row{u"stall 300 4", u"stall 300 4"},
        Row{u"fiscal swallow", u"fiscal swallow 1"}, Row{u"soft drip 5000 2", u"soft drip 5000 2"},
        Row{u"all empty", u"all empty 1"}, Row{u"all wrong-xml", u"all wrong-xml 1"},
        Row{u"all huge", u"all huge 1"}, Row{u"all redirect 307", u"all redirect 307 1"},
        Row{u"fiscal lose 20%", u"fiscal lose 20% seed 1"},
        Row{u"all lose 0.001% seed 7", u"all lose 0.001% seed 7"},
        Row{u"soft delay 5 12.5% seed 4294967295", u"soft delay 5 12.5% seed 4294967295"},
        Row{u"soft lose 100%", u"soft lose 100% seed 1"}, Row{u"clear", u"clear"},
        Row{u"stop", u"stop"}));

struct WrongRow
{
    const char16_t *words;
    const char *expected;
};

class WrongFaultWords : public testing::TestWithParam<WrongRow>
{ };

TEST_P(WrongFaultWords, AreExplained)
{
    try {
        parseFaultWords(QString::fromUtf16(GetParam().words));
        FAIL() << "the words were accepted";
    } catch (const FaultWordsError &error) {
        EXPECT_THAT(error.what(), testing::HasSubstr(GetParam().expected));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, WrongFaultWords,
    testing::Values(WrongRow{u"", "expected a fault"}, WrongRow{u"sale lose", "\"sale\""},
        WrongRow{u"soft", "at the end"}, WrongRow{u"soft lse", "\"lse\": expected one of delay"},
        WrongRow{u"soft delay", "milliseconds"}, WrongRow{u"soft delay x", "\"x\""},
        WrongRow{u"soft delay -1", "from 0 to"}, WrongRow{u"soft status 99", "HTTP status"},
        WrongRow{u"soft lose 0", "number of times"}, WrongRow{u"soft lose 1 2", "\"2\""},
        WrongRow{u"soft lose always 2", "nothing more"},
        WrongRow{u"soft lose 0%", "from 0.001% to 100%"},
        WrongRow{u"soft lose 100.001%", "from 0.001%"}, WrongRow{u"soft lose x%", "\"x%\""},
        WrongRow{u"soft lose 5% seed", "a number at the end"},
        WrongRow{u"soft lose 5% seed x", "the seed"}, WrongRow{u"soft lose 5% 7", "\"7\""},
        WrongRow{u"soft lose 2 seed 7", "\"seed\""}, WrongRow{u"stall", "milliseconds at the end"},
        WrongRow{u"stall -1", "from 0 to"}, WrongRow{u"silence always", "a number of times"},
        WrongRow{u"all redirect 400", "from 300 to 399"}, WrongRow{u"soft drip", "milliseconds"},
        WrongRow{u"refuse 0", "from 1 to"}, WrongRow{u"refuse 1 2", "nothing more"},
        WrongRow{u"clear all", "\"clear\""}));

} // namespace
} // namespace emulator
