// Lines are split into words as a shell does.

#include "till/core/cannotdo.h"
#include "till/script/words.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

struct Row
{
    const char *name;
    QString line;
    QStringList words;
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

class WordsTest : public testing::TestWithParam<Row>
{ };

TEST_P(WordsTest, Split)
{
    EXPECT_EQ(till::splitWords(GetParam().line), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(Lines, WordsTest,
    testing::Values(Row{"Empty", u""_s, {}}, Row{"Blanks", u" \t "_s, {}},
        Row{"Plain", u"add 1001 2"_s, {u"add"_s, u"1001"_s, u"2"_s}},
        Row{"ManyBlanks", u"  add\t\t1001  "_s, {u"add"_s, u"1001"_s}},
        Row{"CarriageReturn", u"total\r"_s, {u"total"_s}}, Row{"Comment", u"# add 1001"_s, {}},
        Row{"CommentBehind", u"add 1001 # bread"_s, {u"add"_s, u"1001"_s}},
        Row{"HashInAWord", u"input A#1"_s, {u"input"_s, u"A#1"_s}},
        Row{"QuotedHash", u"answer text '#1'"_s, {u"answer"_s, u"text"_s, u"#1"_s}},
        Row{"SingleQuotes", u"a 'b \\ \"c'"_s, {u"a"_s, u"b \\ \"c"_s}},
        Row{"DoubleQuotes", u"a \"b 'c'\""_s, {u"a"_s, u"b 'c'"_s}},
        Row{"EscapesInDoubleQuotes", u"\"a \\\" \\\\ \\$ \\` \\n\""_s, {u"a \" \\ $ ` \\n"_s}},
        Row{"EscapedBlank", u"a\\ b"_s, {u"a b"_s}}, Row{"EscapedHash", u"\\#a"_s, {u"#a"_s}},
        Row{"PartsOfOneWord", u"raw='a b'\"c\"d"_s, {u"raw=a bcd"_s}},
        Row{"EmptyWord", u"a ''"_s, {u"a"_s, u""_s}},
        Row{"Cyrillic", u"answer text 'Да, «конечно»'"_s,
            {u"answer"_s, u"text"_s, u"Да, «конечно»"_s}}),
    [](const auto &row) { return row.param.name; });

struct BrokenRow
{
    QString line;
    QString reason;
};

TEST(BrokenWordsTest, SayWhatIsMissing)
{
    const QList<BrokenRow> rows{{u"a 'b"_s, u"a single quote is not closed"_s},
        {u"a \"b"_s, u"a double quote is not closed"_s},
        {u"a \"b\\\""_s, u"a double quote is not closed"_s},
        {u"a \\"_s, u"the line ends in a backslash"_s}};
    for (const BrokenRow &row : rows) {
        SCOPED_TRACE(qPrintable(row.line));
        try {
            (void)till::splitWords(row.line);
            ADD_FAILURE();
        } catch (const till::CannotDo &error) {
            EXPECT_TRUE(error.text().startsWith(row.reason + u"; ")) << error.what();
        }
    }
}

} // namespace
