// Command lines are executed, shown and checked.

#include "tests/till/support/scriptfixture.h"

using namespace Qt::StringLiterals;

namespace {

class InterpreterTest : public ScriptFixture
{ };

TEST_F(InterpreterTest, BlankLinesAndCommentsDoNothing)
{
    for (const QString &line : {u""_s, u"   "_s, u"# comment"_s})
        EXPECT_EQ(whenExecuted(line), std::nullopt);
    EXPECT_TRUE(objects.isEmpty());
}

TEST_F(InterpreterTest, AnObjectHasLineNumberAndTheWholeLineTrimmed)
{
    whenExecuted(u""_s);
    whenExecuted(u"  add  1001 # bread "_s);
    EXPECT_EQ(object()["line"], 2);
    EXPECT_EQ(object()["command"], "add  1001 # bread");
}

TEST_F(InterpreterTest, ExpectChecksTheLastCommand)
{
    whenExecuted(u"add 1001"_s);
    EXPECT_EQ(whenExecuted(u"expect document.sum == 45.9"_s), std::nullopt);
    EXPECT_EQ(whenExecuted(u"expect document.sum == 50"_s),
        u"expected document.sum == 50, but it is 45.9"_s);
}

TEST_F(InterpreterTest, ExpectWritesNoObject)
{
    whenExecuted(u"add 1001"_s);
    whenExecuted(u"expect document.sum == 45.9"_s);
    EXPECT_EQ(objects.size(), 1);
}

TEST_F(InterpreterTest, ExpectLooksPastAnswersClockAndHelp)
{
    whenExecuted(u"add 1001"_s);
    for (const QString &line : {u"answer ok"_s, u"clock 2026-03-01T12:00:00"_s, u"help"_s})
        whenExecuted(line);
    EXPECT_EQ(whenExecuted(u"expect command == 'add 1001'"_s), std::nullopt);
    EXPECT_EQ(objects.size(), 4);
}

TEST_F(InterpreterTest, ExpectBeforeAnyCommandIsAnError)
{
    whenExecuted(u"answer ok"_s);
    EXPECT_TRUE(whyNotExecuted(u"expect document absent"_s).startsWith(u"nothing was done yet"));
}

TEST_F(InterpreterTest, WhatHappensOutsideOfACommandIsInNoObject)
{
    till->start();
    whenExecuted(u"show"_s);
    EXPECT_TRUE(object()["events"].empty());
}

TEST_F(InterpreterTest, AFormsComplaintsAreNotices)
{
    loyalty->behaviour[u"request"_s] = [] {
        InputTextFormParameters form;
        form.regularExpression = u"[0-9]+"_s;
        form.scanError = tr::Tr(u"scanError"_s, u"Ошибка разбора"_s);
        return MockFactory<Dialog>::create()->showInputTextForm(form).canceled();
    };
    whenExecuted(u"answer text abc"_s);
    whenExecuted(u"add 1001"_s);
    whenExecuted(u"total"_s);
    EXPECT_EQ(object()["notices"][0], "Ошибка разбора");
    EXPECT_EQ(object()["result"], true);
}

} // namespace
