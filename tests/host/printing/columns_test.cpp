// Texts in the columns of a receipt.

#include "host/printing/columns.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

TEST(ColumnsTest, WrapsAtBlanksAndBreaksLongWords)
{
    struct Row
    {
        QString text;
        QStringList lines;
    };
    const QList<Row> rows{
        {u""_s, {}},
        {u"  "_s, {}},
        {u"bread"_s, {u"bread"_s}},
        {u"two words"_s, {u"two words"_s}},
        {u"exactly 10"_s, {u"exactly 10"_s}},
        {u"one more 10"_s, {u"one more"_s, u"10"_s}},
        {u"  many \n blanks  "_s, {u"many"_s, u"blanks"_s}},
        {u"abcdefghijklm"_s, {u"abcdefghij"_s, u"klm"_s}},
        {u"a abcdefghijklmnopqrstuv b"_s, {u"a"_s, u"abcdefghij"_s, u"klmnopqrst"_s, u"uv b"_s}},
        {u"abcdefghij klm"_s, {u"abcdefghij"_s, u"klm"_s}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(columns::wrapped(row.text, 10), row.lines) << qPrintable(row.text);
}

TEST(ColumnsTest, SpreadsTextAndFigureOverTheLine)
{
    EXPECT_EQ(columns::spread(u"sum"_s, u"1.00"_s, 10), u"sum   1.00"_s);
    EXPECT_EQ(columns::spread(u"total"_s, u"1.00"_s, 10), u"total 1.00"_s);
    EXPECT_EQ(columns::spread(u""_s, u"1.00"_s, 10), u"      1.00"_s);
}

TEST(ColumnsTest, FigureThatDoesNotFitStandsOnALineOfItsOwn)
{
    EXPECT_EQ(columns::spread(u"totals"_s, u"1.00"_s, 10), u"totals\n      1.00"_s);
    EXPECT_EQ(
        columns::spread(u"more than that"_s, u"1.00"_s, 10), u"more than\nthat\n      1.00"_s);
}

TEST(ColumnsTest, CentresAText)
{
    EXPECT_EQ(columns::centred(u"four"_s, 10), u"   four"_s);
    EXPECT_EQ(columns::centred(u"three"_s, 10), u"  three"_s);
    EXPECT_EQ(columns::centred(u"more than that"_s, 10), u"more than that"_s);
}

} // namespace
