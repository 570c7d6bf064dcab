// Killed tills, and two tills on one state folder.

#include "tests/till/program/programfixture.h"

using namespace Qt::StringLiterals;

namespace {

class SurvivalTest : public ProgramFixture
{ };

TEST_F(SurvivalTest, AKilledTillGoesOnWithItsDocument)
{
    const auto killed = givenRunningTill();
    whenTold(*killed, "card 2900000000017");
    whenTold(*killed, "add 1002");
    whenTold(*killed, "total");
    killed->kill();
    killed->waitForFinished();

    const auto restarted = givenRunningTill();
    const auto object = whenTold(*restarted, "show");
    EXPECT_EQ(object["document"]["number"], "17");
    EXPECT_EQ(object["document"]["sumDiscounted"], 90.0);
    EXPECT_EQ(object["document"]["card"]["number"], "2900000000017");
    EXPECT_EQ(whenTold(*restarted, "close")["document"]["state"], "closed");
    whenInputEnds(*restarted);
}

TEST_F(SurvivalTest, AClosedChequeOfAKilledTillDoesNotComeBack)
{
    const auto killed = givenRunningTill();
    whenTold(*killed, "add 1002");
    whenTold(*killed, "close");
    killed->kill();
    killed->waitForFinished();
    whenScriptRuns("show\nexpect document absent\nsale\nexpect document.number == 18\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
}

TEST_F(SurvivalTest, TheSecondTillOnAStateFolderIsRefused)
{
    const auto first = givenRunningTill();
    whenTold(*first, "add 1002");
    whenStarted(usualOptions());
    thenFails(3, u"korvel-till: "_s + path(u"state"_s) + u": another till (process ");
    EXPECT_EQ(whenTold(*first, "close")["document"]["state"], "closed");
    EXPECT_EQ(whenInputEnds(*first), 0);
}

TEST_F(SurvivalTest, AReturnOfASaleOfAnEarlierRun)
{
    whenScriptRuns("card 2900000000017\nadd 1002\ntotal\nclose\n");
    whenScriptRuns("return 17\nexpect document.type == 25\nexpect document.refersTo == 17\n"
                   "expect document.sumDiscounted == 90\nexpect document.card.operationId == ''\n"
                   "close\nexpect result == true\n");
    EXPECT_EQ(status, 0) << errors.toStdString();
}

} // namespace
