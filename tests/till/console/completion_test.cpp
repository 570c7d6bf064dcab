// What a word at the prompt can become.

#include "till/console/completion.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QStringList articles{u"1001"_s, u"1002"_s, u"2001"_s};

TEST(CompletionTest, ALineBeginsWithACommand)
{
    EXPECT_EQ(till::completions(u""_s, u"c"_s, articles),
        (QStringList{
            u"card"_s, u"coupon"_s, u"close"_s, u"cancel"_s, u"close-shift"_s, u"clock"_s}));
    EXPECT_EQ(till::completions(u"  "_s, u"tot"_s, articles), QStringList{u"total"_s});
}

TEST(CompletionTest, AddAndInputTakeArticles)
{
    EXPECT_EQ(
        till::completions(u"add "_s, u"100"_s, articles), (QStringList{u"1001"_s, u"1002"_s}));
    EXPECT_EQ(till::completions(u"input "_s, u"2"_s, articles), QStringList{u"2001"_s});
}

TEST(CompletionTest, ElsewhereThereIsNothing)
{
    EXPECT_EQ(till::completions(u"card "_s, u"1"_s, articles), QStringList());
    EXPECT_EQ(till::completions(u"add 1001 "_s, u"1"_s, articles), QStringList());
}

} // namespace
