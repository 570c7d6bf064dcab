#include "client/returncode.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace korvelLoyaltyOnline;
using namespace Qt::Literals::StringLiterals;

namespace {

ReturnCode codeOf(const QString &content)
{
    QDomDocument answer;
    EXPECT_TRUE(answer.setContent(u"<a>" + content + u"</a>"));
    return readReturnCode(answer);
}

} // namespace

TEST(ReturnCodeTest, IsReadFromTheFirstElementOfItsName)
{
    EXPECT_EQ(codeOf(u"<b><ReturnCode>5</ReturnCode></b><ReturnCode>6</ReturnCode>"_s).code, 5);
}

TEST(ReturnCodeTest, IsADecimalIntegerOfThirtyTwoBitsOrZeroAndUnread)
{
    struct Row
    {
        QString text;
        int code;
        bool isRead;
    };
    const QList<Row> rows = {{u"0"_s, 0, true}, {u"-5"_s, -5, true}, {u" 83000 "_s, 83000, true},
        {u"2147483647"_s, 2147483647, true}, {u"-2147483648"_s, -2147483647 - 1, true},
        {u"2147483648"_s, 0, false}, {u"4294967296"_s, 0, false}, {u"1.0"_s, 0, false},
        {u"0x10"_s, 0, false}, {u""_s, 0, false}, {u"x"_s, 0, false}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.text.toStdString());
        const ReturnCode read = codeOf(u"<ReturnCode>%1</ReturnCode>"_s.arg(row.text));
        EXPECT_EQ(read.code, row.code);
        EXPECT_EQ(read.isRead, row.isRead);
    }
}

TEST(ReturnCodeTest, IsUnreadWhenAbsent)
{
    EXPECT_FALSE(codeOf({}).isRead);
    EXPECT_EQ(codeOf({}).code, 0);
}

TEST(ReturnCodeTest, MeansSuccessOnlyWhenReadAndBelowOne)
{
    struct Row
    {
        ReturnCode code;
        bool isSuccess;
    };
    const QList<Row> rows
        = {{{0, true}, true}, {{-5, true}, true}, {{1, true}, false}, {{0, false}, false}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.code.code);
        EXPECT_EQ(row.code.isSuccess(), row.isSuccess);
    }
}

TEST(VerdictTest, FollowsTheCode)
{
    struct Row
    {
        int code;
        QSet<int> shown;
        Verdict verdict;
    };
    const QList<Row> rows = {
        {0, {}, Verdict::NoError},
        {0, {0}, Verdict::NoError},
        {80241, {}, Verdict::Refusal},
        {80420, {}, Verdict::Refusal},
        {81330, {}, Verdict::Refusal},
        {83000, {}, Verdict::Refusal},
        {89184, {}, Verdict::Refusal},
        {80001, {}, Verdict::InternalError},
        {80001, {80002}, Verdict::InternalError},
        {80001, {80002, 80001}, Verdict::Refusal},
        {81400, {}, Verdict::InternalError},
        {1, {}, Verdict::InternalError},
        {-1, {}, Verdict::InternalError},
        {-1, {-1}, Verdict::Refusal},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.code);
        EXPECT_EQ(verdictOn(row.code, row.shown), row.verdict);
    }
}
