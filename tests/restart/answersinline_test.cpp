// Which answers a killed till takes with it.

#include "tests/restart/answersinline.h"
#include "tests/support/printers.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

using Json = nlohmann::json;

struct Dialog
{
    const char *kind;
    const char *answer;
};

struct Row
{
    const char *name;
    QStringList given;
    std::vector<Dialog> dialogs;
    QStringList left;
};

const Row rows[] = {
    {"NothingWasAsked", {u"answer ok"_s, u"answer text a b"_s}, {},
        {u"answer ok"_s, u"answer text a b"_s}},
    {"MessagesTakeNone", {u"answer ok"_s}, {{"message", "ok"}}, {u"answer ok"_s}},
    {"AChoiceTakesTheFirst", {u"answer cancel"_s, u"answer ok"_s}, {{"choice", "cancel"}},
        {u"answer ok"_s}},
    {"AChoicePassesOverTexts", {u"answer text 1"_s, u"answer ok"_s}, {{"choice", "ok"}},
        {u"answer text 1"_s}},
    {"AChoiceWithoutAnAnswer", {u"answer text 1"_s}, {{"choice", "ok"}}, {u"answer text 1"_s}},
    {"AFormTakesItsText", {u"answer text 4829"_s, u"answer text 1"_s}, {{"text", "4829"}},
        {u"answer text 1"_s}},
    {"AFormUsesUpWhatItRefuses",
        {u"answer text ?"_s, u"answer ok"_s, u"answer text a b"_s, u"answer ok"_s},
        {{"text", "a b"}}, {u"answer ok"_s}},
    {"AFormIsCancelled", {u"answer cancel"_s, u"answer ok"_s}, {{"text", "cancel"}},
        {u"answer ok"_s}},
    {"AFormIsCancelledForWantOfAnswers", {u"answer text ?"_s}, {{"text", "cancel"}}, {}},
    {"DialogsInARow", {u"answer ok"_s, u"answer text 4829"_s},
        {{"choice", "ok"}, {"message", "ok"}, {"text", "4829"}}, {}},
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

class AnswersInLineTest : public testing::TestWithParam<Row>
{
public:
    static Json object(const std::vector<Dialog> &dialogs)
    {
        Json list = Json::array();
        for (const Dialog &dialog : dialogs)
            list.push_back({{"kind", dialog.kind}, {"answer", dialog.answer}});
        return {{"dialogs", list}};
    }
};

TEST_P(AnswersInLineTest, KnowsWhatIsLeft)
{
    AnswersInLine line;
    const Scenario given = readScenario(u"given"_s, GetParam().given.join(u'\n'));
    for (const Command &answer : given.commands)
        line.note(answer, object({}));
    line.note({1, u"total"_s, {u"total"_s}}, object(GetParam().dialogs));
    EXPECT_EQ(line.commands(), GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(Lines, AnswersInLineTest, testing::ValuesIn(rows),
    [](const auto &row) { return row.param.name; });

} // namespace

} // namespace restart
