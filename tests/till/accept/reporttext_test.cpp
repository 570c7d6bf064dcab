// What a report looks like.

#include "till/accept/reporttext.h"
#include "till/accept/request.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

const Acceptance acceptance{{{u"one"_s, u"Sale"_s, {u"the first rule"_s, u"первое"_s}},
                                {u"two"_s, u"Sale"_s, {u"the second rule"_s, u"второе"_s}}},
    {}};

Report reportOf(const QList<RuleResult> &rules)
{
    Report report;
    report.url = u"http://host/"_s;
    report.card = u"29"_s;
    report.flows = {{u"flow"_s, u"a title"_s, rules, {}}};
    return report;
}

TEST(ReportTextTest, ALineForEachRule)
{
    const Report report = reportOf({{u"one"_s, Verdict::Passed, {}, {}},
        {u"two"_s, Verdict::NotOffered, u"needs a thing"_s, {}}});
    EXPECT_EQ(reportText(report, acceptance).toStdString(),
        "acceptance of http://host/ with card 29\n\n"
        "flow: a title\n"
        "  passed       one                   the first rule\n"
        "  not offered  two                   the second rule (needs a thing)\n\n"
        "nothing was booked\n"
        "passed: 1, failed: 0, not offered: 1, not reached: 0\n");
}

TEST(ReportTextTest, AMessageThatNobodyCouldReadIsShownAsItCame)
{
    constexpr int levels = 100'000;
    const QByteArray deep
        = QByteArray("<a>").repeated(levels) + QByteArray("</a>").repeated(levels);
    EXPECT_EQ(indented(deep), QString::fromUtf8(deep));
}

TEST(ReportTextTest, AFlowThatWasLeftOutIsOneLine)
{
    const Report report = reportOf({{u"one"_s, Verdict::NotOffered, u"needs --write"_s, {}},
        {u"two"_s, Verdict::NotOffered, u"needs --write"_s, {}}});
    EXPECT_TRUE(reportText(report, acceptance)
                    .contains(u"flow: a title\n  not offered (needs --write)\n\n"));
}

// What a service says must not command a terminal.
TEST(ReportTextTest, AnswersCommandNoTerminal)
{
    const Failure failure{u"step"_s, {u"x"_s, u"a\x1b[2J\nb"_s}, "<a/>", "\x1b]0;title\x07 no xml"};
    const QString text
        = reportText(reportOf({{u"one"_s, Verdict::Failed, {}, {failure}}}), acceptance);
    EXPECT_FALSE(text.contains(u'\x1b'));
    EXPECT_FALSE(text.contains(u'\x07'));
    EXPECT_TRUE(text.contains(u"no xml"));
    EXPECT_TRUE(text.contains(u"      request: step\n"));
}

TEST(ReportTextTest, LongAnswersAreCut)
{
    const Failure failure{u"step"_s, {u"x"_s, u"y"_s}, "<a/>", QByteArray(100'000, 'z')};
    const QString text
        = reportText(reportOf({{u"one"_s, Verdict::Failed, {}, {failure}}}), acceptance);
    EXPECT_TRUE(text.contains(u"zzz…\n"));
    EXPECT_LT(text.size(), 10'000);
}

TEST(ReportTextTest, MessagesAreIndentedWithoutTheirComments)
{
    const Failure failure{u"step"_s, {u"x"_s, u"y"_s}, "<a><!-- why --><b>1</b></a>", {}};
    const QString text
        = reportText(reportOf({{u"one"_s, Verdict::Failed, {}, {failure}}}), acceptance);
    EXPECT_TRUE(text.contains(u"        <a>\n          <b>1</b>\n        </a>\n"_s))
        << qPrintable(text);
    EXPECT_TRUE(text.contains(u"      answer:\n        –\n"));
}

TEST(ReportTextTest, NothingLeftIsNothingSaid)
{
    EXPECT_TRUE(leftOverText(reportOf({})).isEmpty());
    EXPECT_TRUE(reportOf({}).isClean());
}

TEST(ReportTextTest, WhatIsLeftIsNamed)
{
    Report report = reportOf({});
    report.leftOver = {{u"Return"_s, u"29"_s, u"17"_s, {}, u"no"_s}};
    report.balanceBefore = u"5.00"_s;
    EXPECT_EQ(leftOverText(report).join(u'\n').toStdString(),
        "NOT TAKEN BACK: Return, cheque 17, card 29, transaction –: no\n"
        "THE BALANCE HAS CHANGED: card 29 had 5.00, and has –");
    EXPECT_FALSE(report.isClean());
    const till::Json object = reportObject(report, acceptance);
    EXPECT_TRUE(object["leftOver"][0]["transaction"].is_null());
    EXPECT_EQ(object["leftOver"][0]["number"], "17");
}

} // namespace
