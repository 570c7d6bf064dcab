// A cashier at a terminal.

#include "till/console/promptcashier.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

class PromptCashierTest : public testing::Test
{
public:
    PromptCashierTest()
        : cashier(out, [this](const QString &prompt) -> std::optional<QString> {
            prompts.append(prompt);
            return typed.isEmpty() ? std::nullopt : std::optional(typed.takeFirst());
        })
    {
        form.title = tr::Tr(u"t"_s, u"Заголовок"_s);
        form.message = tr::Tr(u"m"_s, u"Введите код"_s);
        form.scanError = tr::Tr(u"e"_s, u"Ошибка"_s);
        form.cancelButton = tr::Tr(u"c"_s, u"Отмена"_s);
        form.regularExpression = u"[0-9]+"_s;
    }
    bool whenAsked()
    {
        return cashier.choose(
            tr::Tr(u"q"_s, u"Списать?"_s), tr::Tr(u"y"_s, u"Да"_s), tr::Tr(u"n"_s, u"Нет"_s));
    }

    std::ostringstream out;
    QStringList typed;
    QStringList prompts;
    till::PromptCashier cashier;
    InputTextFormParameters form;
};

TEST_F(PromptCashierTest, MessagesAreShown)
{
    cashier.read(tr::Tr(u"m"_s, u"Нет связи"_s));
    EXPECT_EQ(out.str(), "Нет связи\n");
}

TEST_F(PromptCashierTest, AChoiceIsAskedUntilItIsAnswered)
{
    typed = QStringList{u"perhaps"_s, u"2"_s};
    EXPECT_FALSE(whenAsked());
    EXPECT_EQ(prompts, (QStringList{u"1 Да, 2 Нет [1]: "_s, u"1 Да, 2 Нет [1]: "_s}));
    EXPECT_EQ(out.str(), "Списать?\n");
}

TEST_F(PromptCashierTest, AnEmptyLineTakesTheFirstChoice)
{
    typed = QStringList{u""_s};
    EXPECT_TRUE(whenAsked());
}

TEST_F(PromptCashierTest, TheEndOfTheInputAcceptsNothing)
{
    EXPECT_FALSE(whenAsked());
    EXPECT_EQ(cashier.enter(form), std::nullopt);
}

TEST_F(PromptCashierTest, AFormIsAskedUntilTheTextMatches)
{
    typed = QStringList{u"abc"_s, u"1234"_s};
    EXPECT_EQ(cashier.enter(form), u"1234"_s);
    EXPECT_EQ(out.str(), "Заголовок\nОшибка\n");
    EXPECT_EQ(prompts.value(0), u"Введите код (empty: Отмена): "_s);
}

TEST_F(PromptCashierTest, AnEmptyLineCancelsAForm)
{
    typed = QStringList{u""_s};
    EXPECT_EQ(cashier.enter(form), std::nullopt);
}

TEST_F(PromptCashierTest, AnswersGivenBeforehandComeFirst)
{
    cashier.addCancel();
    cashier.addText(u"77"_s);
    EXPECT_FALSE(whenAsked());
    EXPECT_EQ(cashier.enter(form), u"77"_s);
    EXPECT_TRUE(prompts.isEmpty());
}

} // namespace
