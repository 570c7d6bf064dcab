// Answers that were given beforehand.

#include "till/script/answerline.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class AnswerLineTest : public testing::Test
{
public:
    AnswerLineTest()
    {
        form.regularExpression = u"[A-Za-z0-9]{1,}"_s;
        form.scanError = tr::Tr(u"scanError"_s, u"Ошибка"_s);
        form.text = u"initial"_s;
    }
    bool whenAsked() { return answers.choose({}, {}, {}); }
    std::optional<QString> whenFormOpens() { return answers.enter(form); }

    till::AnswerLine answers;
    InputTextFormParameters form;
};

TEST_F(AnswerLineTest, WithoutAnswersAChoiceIsAcceptedAndAFormCancelled)
{
    EXPECT_TRUE(whenAsked());
    EXPECT_EQ(whenFormOpens(), std::nullopt);
}

TEST_F(AnswerLineTest, OkAndCancelFitBoth)
{
    answers.addCancel();
    answers.addOk();
    answers.addCancel();
    answers.addOk();
    EXPECT_FALSE(whenAsked());
    EXPECT_TRUE(whenAsked());
    EXPECT_EQ(whenFormOpens(), std::nullopt);
    EXPECT_EQ(whenFormOpens(), u"initial"_s);
}

TEST_F(AnswerLineTest, ATextWaitsForAForm)
{
    answers.addText(u"1234"_s);
    answers.addCancel();
    EXPECT_FALSE(whenAsked());
    EXPECT_TRUE(whenAsked());
    EXPECT_EQ(whenFormOpens(), u"1234"_s);
}

TEST_F(AnswerLineTest, AMessageTakesNoAnswer)
{
    answers.addCancel();
    answers.read({});
    EXPECT_FALSE(whenAsked());
}

TEST_F(AnswerLineTest, ATextThatTheFormDoesNotAcceptIsUsedUp)
{
    answers.addText(u"12-34"_s);
    answers.addText(u"1234"_s);
    EXPECT_EQ(whenFormOpens(), u"1234"_s);
    EXPECT_EQ(answers.takeComplaints().value(0).id(), u"scanError"_s);
    EXPECT_TRUE(answers.takeComplaints().isEmpty());
}

TEST_F(AnswerLineTest, AFormWhoseTextsAllFailIsCancelled)
{
    answers.addText(u"12 34"_s);
    EXPECT_EQ(whenFormOpens(), std::nullopt);
}

TEST_F(AnswerLineTest, OkDoesNotHandOverWhatTheFormDoesNotAccept)
{
    form.text.clear();
    answers.addOk();
    EXPECT_EQ(whenFormOpens(), std::nullopt);
}

TEST_F(AnswerLineTest, AFormWithoutExpressionAcceptsAnything)
{
    form.regularExpression.clear();
    answers.addText(u"да, 12!"_s);
    EXPECT_EQ(whenFormOpens(), u"да, 12!"_s);
}

} // namespace
