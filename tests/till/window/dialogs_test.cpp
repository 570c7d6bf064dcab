// What the plug-in and the till ask, answered by keyboard and mouse.

#include "tests/support/printers.h"
#include "tests/till/window/windowfixture.h"

using namespace Qt::StringLiterals;

namespace {

const tr::Tr question(u"q"_s, u"Использовать фишки?"_s);
const tr::Tr yes(u"y"_s, u"Да, сейчас"_s);
const tr::Tr no(u"n"_s, u"Не надо"_s);

InputTextFormParameters codeForm()
{
    InputTextFormParameters form;
    form.title = tr::Tr(u"t"_s, u"Подтверждение"_s);
    form.message = tr::Tr(u"m"_s, u"Введите код"_s);
    form.scanError = tr::Tr(u"s"_s, u"В коде четыре цифры"_s);
    form.okButton = yes;
    form.cancelButton = no;
    form.regularExpression = u"\\d{4}"_s;
    form.text = u"12"_s;
    return form;
}

class DialogsTest : public WindowFixture
{
public:
    static QString textOf(const QDialog &dialog, const char *name)
    {
        return dialog.findChild<QLabel *>(QString::fromLatin1(name))->text();
    }
    static QPushButton *button(const QDialog &dialog, const char *name)
    {
        return dialog.findChild<QPushButton *>(QString::fromLatin1(name));
    }
    static QLineEdit *input(const QDialog &dialog) { return dialog.findChild<QLineEdit *>(); }
};

TEST_F(DialogsTest, AMessageIsReadWithEnter)
{
    QString shown;
    whenDialogOpens([&](QDialog &dialog) {
        shown = textOf(dialog, "question");
        EXPECT_FALSE(button(dialog, "reject"));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    MockFactory<Dialog>::create()->showMessage(question);
    EXPECT_EQ(shown, u"Использовать фишки?");
}

TEST_F(DialogsTest, AChoiceHasThePlugInsWords)
{
    whenDialogOpens([&](QDialog &dialog) {
        EXPECT_EQ(button(dialog, "accept")->text(), yes.ui());
        EXPECT_EQ(button(dialog, "reject")->text(), no.ui());
        QTest::mouseClick(button(dialog, "reject"), Qt::LeftButton);
    });
    EXPECT_FALSE(MockFactory<Dialog>::create()->showChoice(question, yes, no));
}

TEST_F(DialogsTest, AChoiceIsAcceptedWithEnterAndRejectedWithEscape)
{
    whenDialogOpens([](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    EXPECT_TRUE(cashier.choose(question, yes, no));
    whenDialogOpens([](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_FALSE(cashier.choose(question, yes, no));
}

TEST_F(DialogsTest, AStrayScanAnswersNoQuestion)
{
    for (const bool isChoice : {true, false}) {
        whenDialogOpens([](QDialog &dialog) {
            EXPECT_FALSE(dialog.findChild<QLabel *>(u"questionHint"_s)->isVisible());
            QTest::keyClicks(button(dialog, "accept"), u"46 001"_s);
            QTest::keyClick(button(dialog, "accept"), Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(
                textOf(dialog, "questionHint"), u"Скан не принят: сначала ответьте на вопрос");
            EXPECT_TRUE(dialog.findChild<QLabel *>(u"questionHint"_s)->isVisible());
            QTest::keyClick(button(dialog, "accept"), Qt::Key_Return);
        });
        if (isChoice)
            EXPECT_TRUE(cashier.choose(question, yes, no));
        else
            cashier.read(question);
    }
}

TEST_F(DialogsTest, AScanThatTheDialogItselfGetsAnswersNothingEither)
{
    whenDialogOpens([](QDialog &dialog) {
        QTest::keyClicks(&dialog, u"1"_s);
        QTest::keyClick(&dialog, Qt::Key_Enter);
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(cashier.choose(question, yes, no));
}

TEST_F(DialogsTest, TheOtherAnswerIsReachedByTabAndEnter)
{
    whenDialogOpens([](QDialog &dialog) {
        QTest::keyClick(button(dialog, "accept"), Qt::Key_Tab);
        QTest::keyClick(button(dialog, "reject"), Qt::Key_Return);
    });
    EXPECT_FALSE(cashier.choose(question, yes, no));
}

TEST_F(DialogsTest, AFormShowsTheTextsAndHandsOverWhatWasTyped)
{
    whenDialogOpens([](QDialog &dialog) {
        EXPECT_EQ(textOf(dialog, "formTitle"), u"Подтверждение");
        EXPECT_EQ(textOf(dialog, "formMessage"), u"Введите код");
        EXPECT_EQ(input(dialog)->text(), u"12");
        EXPECT_FALSE(dialog.findChild<QWidget *>(u"keypad"_s));
        QTest::keyClicks(input(dialog), u"4829"_s);
        QTest::keyClick(input(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(cashier.enter(codeForm()), u"4829"_s);
}

TEST_F(DialogsTest, AFormSaysWhatDoesNotFitAndStays)
{
    whenDialogOpens([](QDialog &dialog) {
        QTest::keyClicks(input(dialog), u"12345"_s);
        QTest::keyClick(input(dialog), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(textOf(dialog, "formError"), u"В коде четыре цифры");
        QTest::keyClicks(input(dialog), u"4829"_s);
        QTest::mouseClick(button(dialog, "accept"), Qt::LeftButton);
    });
    EXPECT_EQ(cashier.enter(codeForm()), u"4829"_s);
}

TEST_F(DialogsTest, AFormIsCancelledWithEscapeOrItsButton)
{
    whenDialogOpens([](QDialog &dialog) { QTest::keyClick(input(dialog), Qt::Key_Escape); });
    EXPECT_EQ(cashier.enter(codeForm()), std::nullopt);
    whenDialogOpens(
        [](QDialog &dialog) { QTest::mouseClick(button(dialog, "reject"), Qt::LeftButton); });
    EXPECT_EQ(cashier.enter(codeForm()), std::nullopt);
}

TEST_F(DialogsTest, TheDigitalKeyboardWrites)
{
    InputTextFormParameters form = codeForm();
    form.regularExpression = u"7,5"_s;
    form.showDigitalKeyboard = true;
    whenDialogOpens([](QDialog &dialog) {
        for (const char *key : {"key7", "key0", "key⌫", "key,", "key5"})
            QTest::mouseClick(
                dialog.findChild<QPushButton *>(QString::fromUtf8(key)), Qt::LeftButton);
        QTest::keyClick(input(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(cashier.enter(form), u"7,5"_s);
}

TEST_F(DialogsTest, TheTillsOwnFormsHaveTheKeyboardWhereItIsSet)
{
    whenScanned(u"1002"_s);
    for (const bool wanted : {true, false}) {
        givenSetting(u"Till:digitalKeyboard"_s, wanted ? u"true"_s : u"false"_s);
        whenDialogOpens([wanted](QDialog &dialog) {
            EXPECT_EQ(dialog.findChild<QWidget *>(u"keypad"_s) != nullptr, wanted);
            QTest::keyClicks(input(dialog), u"4"_s);
            QTest::keyClick(input(dialog), Qt::Key_Return);
        });
        whenKeyPressed(Qt::Key_F2);
    }
    EXPECT_EQ(row(0).at(3), u"4 шт");
}

TEST_F(DialogsTest, ADialogTakesTheVeilAway)
{
    bool wasCovered = true;
    window.veil().begin(question);
    whenDialogOpens([&](QDialog &dialog) {
        wasCovered = window.veil().isVisible();
        dialog.accept();
    });
    cashier.read(question);
    EXPECT_FALSE(wasCovered);
}

TEST_F(DialogsTest, WhatWasTypedAtTheVeilAnswersNoDialog)
{
    window.veil().begin(question);
    QCoreApplication::postEvent(part<QLineEdit>("input"),
        new QKeyEvent(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, u"7"_s));
    whenDialogOpens([](QDialog &dialog) { dialog.accept(); });
    cashier.read(question);
    EXPECT_EQ(part<QLineEdit>("input")->text(), QString());
}

} // namespace
