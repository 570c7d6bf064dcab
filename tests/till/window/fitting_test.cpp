// Every text of the window can be read, in both languages and at the usual sizes.

#include "tests/support/printers.h"
#include "tests/till/window/fitting.h"
#include "tests/till/window/salefixture.h"
#include "till/window/forms.h"
#include "till/window/questiondialog.h"
#include "till/window/textformdialog.h"
#include "till/window/texts.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

using Case = std::tuple<const char *, QSize>;

const QByteArray touch = "digitalKeyboard=true\n";

QByteArray settings(const char *language)
{
    return QByteArray("language=") + language + '\n' + touch;
}

class FittingTest : public SaleFixture, public testing::TestWithParam<Case>
{
public:
    FittingTest()
        : SaleFixture(settings(std::get<0>(GetParam())))
    {
        givenWindowOf(std::get<1>(GetParam()));
        window().setBand(till::texts::demoBand.arg(u"http://127.0.0.1:65535/"_s).ui());
    }
    static void thenFits(const QWidget &widget)
    {
        QCoreApplication::processEvents();
        EXPECT_EQ(misfitsOf(widget), QStringList());
    }
    static void thenDialogFits(QDialog &dialog)
    {
        thenFits(dialog);
        EXPECT_LE(dialog.width(), 1024);
        EXPECT_LE(dialog.height(), 768);
        for (const QPushButton *button : dialog.findChildren<QPushButton *>())
            EXPECT_GE(button->height(), 48) << qPrintable(button->text());
        dialog.reject();
    }
};

TEST_P(FittingTest, TheEmptyDesk)
{
    thenFits(window());
}

TEST_P(FittingTest, AChequeWithACardMessagesAndNoConnection)
{
    whenScanned(u"2900000000017"_s);
    for (const QString &article : {u"1001"_s, u"1003"_s, u"1008"_s, u"9900000000018"_s})
        whenScanned(article);
    whenKeyPressed(Qt::Key_F7);
    thenFits(window());
    whenScanned(u"2900000000031"_s);
    part<QLineEdit>("input")->clear();
    whenConnectionIsLost();
    thenFits(window());
}

TEST_P(FittingTest, TheExchanges)
{
    whenScanned(u"2900000000031"_s);
    whenClicked("exchangesButton");
    whenClicked("copy");
    thenFits(window());
}

TEST_P(FittingTest, TheDialogs)
{
    whenScanned(u"1003"_s);
    for (const Qt::Key key :
        {Qt::Key_F2, Qt::Key_F4, Qt::Key_F5, Qt::Key_F6, Qt::Key_F8, Qt::Key_F9, Qt::Key_F11}) {
        whenDialogOpens(thenDialogFits);
        whenKeyPressed(key);
    }
    till::QuestionDialog offer(
        till::texts::demoOffer, till::texts::demoStart, till::texts::demoDecline, nullptr);
    offer.show();
    QTest::keyClicks(&offer, u"1"_s);
    thenDialogFits(offer);
}

TEST_P(FittingTest, ATextThatIsTooLongIsNoticed)
{
    part<QPushButton>("F1")->setText(u"long "_s.repeated(20));
    part<QPushButton>("F1")->setMaximumWidth(100);
    part<QLabel>("totalName")->setText(u"long "_s.repeated(200));
    part<QLabel>("totalName")->setMaximumWidth(100);
    part<QTableWidget>("positions")->horizontalHeader()->resizeSection(2, 10);
    QCoreApplication::processEvents();
    const QString misfits = misfitsOf(window()).join(u'\n');
    for (const QString &part : {u"F1"_s, u"totalName"_s})
        EXPECT_TRUE(misfits.contains(part)) << qPrintable(misfits);
}

TEST_P(FittingTest, WhatLiesOverSomethingElseIsNoticed)
{
    auto *total = part<QLabel>("total");
    total->move(part<QLineEdit>("input")->pos());
    EXPECT_TRUE(misfitsOf(window()).join(u'\n').contains(u"overlaps"));
}

INSTANTIATE_TEST_SUITE_P(Everywhere, FittingTest,
    testing::Combine(
        testing::Values("ru", "en"), testing::Values(QSize(1024, 768), QSize(1920, 1080))));

} // namespace
