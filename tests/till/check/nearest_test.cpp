#include "till/check/nearest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

TEST(Nearest, CountsSlips)
{
    struct Row
    {
        QString left;
        QString right;
        int steps;
    };
    const QList<Row> rows{{u""_s, u""_s, 0}, {u"url"_s, u"url"_s, 0}, {u"URL"_s, u"url"_s, 0},
        {u""_s, u"url"_s, 3}, {u"url"_s, u""_s, 3}, {u"urll"_s, u"url"_s, 1},
        {u"ul"_s, u"url"_s, 1}, {u"uml"_s, u"url"_s, 1}, {u"ulr"_s, u"url"_s, 1},
        {u"lru"_s, u"url"_s, 2}, {u"kitten"_s, u"sitting"_s, 3}, {u"ba"_s, u"ab"_s, 1}};
    for (const Row &row : rows)
        EXPECT_EQ(distance(row.left, row.right), row.steps)
            << qPrintable(row.left) << ' ' << qPrintable(row.right);
}

TEST(Nearest, IsWhatWasMeant)
{
    const QStringList known{u"warnMinutes"_s, u"alarmMinutes"_s, u"url"_s, u"user"_s};
    EXPECT_EQ(nearest(u"warnMinuts"_s, known), u"warnMinutes"_s);
    EXPECT_EQ(nearest(u"alrmMinutes"_s, known), u"alarmMinutes"_s);
    EXPECT_EQ(nearest(u"uri"_s, known), u"url"_s);
    EXPECT_EQ(nearest(u"uxx"_s, known), QString());
    EXPECT_EQ(nearest(u"urlaub"_s, known), QString());
    EXPECT_EQ(nearest(u"anything"_s, {}), QString());
}

} // namespace
