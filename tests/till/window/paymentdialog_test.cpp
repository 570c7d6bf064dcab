// How the customer pays.

#include "tests/support/printers.h"
#include "tests/till/window/windowfixture.h"
#include "till/window/paymentdialog.h"

using namespace Qt::StringLiterals;
using till::PaymentKind;

namespace {

class PaymentDialogTest : public WindowFixture
{
public:
    PaymentDialogTest()
    {
        desk.setPaymentForm([this](double rest) { return cashier.takeMoney(rest); });
        whenScanned(u"1002"_s);
    }
    static QString label(const QDialog &dialog, const char *name)
    {
        return dialog.findChild<QLabel *>(QString::fromLatin1(name))->text();
    }
    static void click(const QDialog &dialog, const char *name)
    {
        QTest::mouseClick(
            dialog.findChild<QPushButton *>(QString::fromLatin1(name)), Qt::LeftButton);
    }
    static void type(const QDialog &dialog, const QString &amount)
    {
        QTest::keyClicks(dialog.findChild<QLineEdit *>(u"given"_s), amount);
    }
    static void press(QDialog &dialog, Qt::Key key) { QTest::keyClick(&dialog, key); }
    /// Closes the cheque and gives the dialog what was said.
    void whenPaid(const std::function<void(QDialog &)> &act)
    {
        whenDialogOpens(act);
        whenKeyPressed(Qt::Key_F8);
    }
    void thenClosedWith(const QString &line) const
    {
        EXPECT_EQ(text("title"), u"Касса свободна");
        const QString paper = part<QPlainTextEdit>("paper")->toPlainText().simplified();
        EXPECT_TRUE(paper.contains(line)) << qPrintable(paper);
    }
};

TEST_F(PaymentDialogTest, EnterPaysTheRestInCash)
{
    whenPaid([](QDialog &dialog) {
        EXPECT_EQ(label(dialog, "rest"), u"100.00");
        press(dialog, Qt::Key_Return);
    });
    thenClosedWith(u"Наличными 100.00"_s);
    EXPECT_TRUE(items("messages").isEmpty());
}

TEST_F(PaymentDialogTest, TheSameKeyAgainPaysTheRestInCash)
{
    whenPaid([](QDialog &dialog) { press(dialog, Qt::Key_F8); });
    thenClosedWith(u"Наличными 100.00"_s);
}

TEST_F(PaymentDialogTest, ChangeIsShownPrintedAndToldUntilRead)
{
    whenPaid([](QDialog &dialog) {
        type(dialog, u"500"_s);
        EXPECT_EQ(label(dialog, "change"), u"Сдача: 400.00");
        press(dialog, Qt::Key_Return);
    });
    thenClosedWith(u"Наличными 500.00 Сдача 400.00"_s);
    EXPECT_EQ(items("messages"), QStringList{u"Сдача: 400.00"_s});
}

TEST_F(PaymentDialogTest, ACardPaysByKeyAndByButton)
{
    whenPaid([](QDialog &dialog) { press(dialog, Qt::Key_F7); });
    thenClosedWith(u"Картой 100.00"_s);
    whenScanned(u"1002"_s);
    whenPaid([](QDialog &dialog) { click(dialog, "card"); });
    thenClosedWith(u"Картой 100.00"_s);
}

TEST_F(PaymentDialogTest, WhatIsPaidInPartIsAskedForAgain)
{
    whenPaid([this](QDialog &dialog) {
        type(dialog, u"30,50"_s);
        EXPECT_EQ(label(dialog, "change"), u"Останется доплатить: 69.50");
        whenDialogOpens([](QDialog &next) {
            EXPECT_EQ(label(next, "rest"), u"69.50");
            click(next, "cash");
        });
        click(dialog, "card");
    });
    thenClosedWith(u"Картой 30.50 Наличными 69.50"_s);
}

TEST_F(PaymentDialogTest, EscapeLeavesTheChequeOpen)
{
    whenPaid([](QDialog &dialog) { press(dialog, Qt::Key_Escape); });
    EXPECT_EQ(text("title"), u"Продажа, чек № 17");
    EXPECT_TRUE(document()->getPayments().isEmpty());
}

TEST_F(PaymentDialogTest, ACardPaysNoMoreThanTheRest)
{
    whenPaid([](QDialog &dialog) {
        type(dialog, u"100,01"_s);
        press(dialog, Qt::Key_F7);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(label(dialog, "formError"), u"Картой можно оплатить не больше 100.00");
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(PaymentDialogTest, AStrayScanIsNoSum)
{
    whenPaid([](QDialog &dialog) {
        for (const QString &scan :
            {u"46001234"_s, u"2900000000017"_s, u"0"_s, u"1.234"_s, u"x"_s}) {
            SCOPED_TRACE(qPrintable(scan));
            type(dialog, scan);
            press(dialog, Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(label(dialog, "formError"), u"Введите сумму, например 500 или 99,50");
        }
        press(dialog, Qt::Key_Escape);
    });
}

TEST_F(PaymentDialogTest, NothingIsAskedWhereNothingIsToBePaid)
{
    whenKeyPressed(Qt::Key_F3);
    whenKeyPressed(Qt::Key_F8);
    EXPECT_EQ(items("messages").size(), 1);
}

TEST_F(PaymentDialogTest, TheDigitalKeyboardIsThereWhereItIsSet)
{
    givenSetting(u"Till:digitalKeyboard"_s, u"true"_s);
    whenPaid([](QDialog &dialog) {
        click(dialog, "key5");
        for (int zeros = 0; zeros < 2; ++zeros)
            click(dialog, "key0");
        EXPECT_EQ(label(dialog, "change"), u"Сдача: 400.00");
        click(dialog, "reject");
    });
}

} // namespace
