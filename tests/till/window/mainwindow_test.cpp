// Selling in the window, by keyboard and mouse.

#include "host/net/restclient.h"
#include "tests/support/printers.h"
#include "tests/till/window/windowfixture.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

class MainWindowTest : public WindowFixture
{ };

TEST_F(MainWindowTest, TheFocusIsInTheInputLine)
{
    EXPECT_TRUE(part<QLineEdit>("input")->hasFocus());
    whenClicked("F1");
    EXPECT_TRUE(part<QLineEdit>("input")->hasFocus());
    whenKeyPressed(Qt::Key_Tab);
    EXPECT_TRUE(part<QLineEdit>("input")->hasFocus());
}

TEST_F(MainWindowTest, ItFillsAScreenWithoutAWindowManager)
{
    window.fillScreen();
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.normalGeometry(), window.screen()->availableGeometry());
}

TEST_F(MainWindowTest, AScanBecomesAPosition)
{
    whenScanned(u"461001"_s);
    EXPECT_EQ(row(0),
        (QStringList{u"1"_s, u"1001"_s, u"Хлеб"_s, u"1 шт"_s, u"45.90"_s, {}, u"45.90"_s, {}}));
    EXPECT_EQ(text("total"), u"45.90");
    EXPECT_EQ(text("title"), u"Продажа, чек № 17");
    EXPECT_EQ(part<QLineEdit>("input")->text(), QString());
}

TEST_F(MainWindowTest, WhatIsNotKnownStaysToBeTypedOver)
{
    whenScanned(u"4711"_s);
    EXPECT_EQ(part<QLineEdit>("input")->selectedText(), u"4711");
    EXPECT_EQ(items("messages").size(), 1);
    whenScanned(u"461001"_s);
    EXPECT_EQ(text("total"), u"45.90");
}

TEST_F(MainWindowTest, ACardAndACouponAreShown)
{
    whenScanned(u"2900000000017"_s);
    whenScanned(u"990001"_s);
    EXPECT_EQ(text("customerCard"), u"2900000000017");
    EXPECT_EQ(text("customerStatus"), u"карта принята");
    EXPECT_EQ(items("coupons"), QStringList{u"990001"_s});
}

// Card types and names come from the service.
TEST_F(MainWindowTest, MarkupInATextIsShownAsItIs)
{
    const auto labels = window.findChildren<QLabel *>();
    ASSERT_FALSE(labels.isEmpty());
    for (const QLabel *label : labels)
        if (!label->objectName().isEmpty()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
        }
}

// Its words would be the toolkit's, in its language.
TEST_F(MainWindowTest, NoFieldHasAMenuOfTheToolkits)
{
    for (const QWidget *field : window.findChildren<QWidget *>())
        if (field->inherits("QLineEdit") || field->inherits("QPlainTextEdit")) {
            EXPECT_EQ(field->contextMenuPolicy(), Qt::NoContextMenu)
                << field->objectName().toStdString();
        }
}

TEST_F(MainWindowTest, EveryFunctionHasALargeButtonThatNamesItsKey)
{
    for (const till::FunctionKey &key : till::functionKeys()) {
        const QString name = QKeySequence(key.key).toString();
        const auto *button = part<QPushButton>(qPrintable(name));
        EXPECT_EQ(button->text(), name + u'\n' + key.name.ui());
        EXPECT_GE(button->height(), 48);
    }
}

TEST_F(MainWindowTest, AKeyAndAButtonDoTheSame)
{
    whenScanned(u"1001"_s);
    whenTyped(u"3"_s);
    whenKeyPressed(Qt::Key_F2);
    EXPECT_EQ(row(0).at(3), u"3 шт");
    whenTyped(u"2"_s);
    whenClicked("F2");
    EXPECT_EQ(row(0).at(3), u"2 шт");
}

TEST_F(MainWindowTest, TheNewestPositionIsChosenAndTheArrowsChooseAnother)
{
    whenScanned(u"1001"_s);
    whenScanned(u"1002"_s);
    whenTyped(u"2"_s);
    whenKeyPressed(Qt::Key_F2);
    EXPECT_EQ(row(1).at(3), u"2 шт");
    whenKeyPressed(Qt::Key_Up);
    whenTyped(u"5"_s);
    whenKeyPressed(Qt::Key_F2);
    EXPECT_EQ(row(0).at(3), u"5 шт");
    EXPECT_EQ(row(1).at(3), u"2 шт");
    whenKeyPressed(Qt::Key_Down);
    whenKeyPressed(Qt::Key_Down);
    whenKeyPressed(Qt::Key_F3);
    ASSERT_EQ(part<QTableWidget>("positions")->rowCount(), 1);
    EXPECT_EQ(row(0).at(1), u"1001");
}

TEST_F(MainWindowTest, AChequeIsCalculatedAndClosedByKeys)
{
    whenScanned(u"1002"_s);
    loyalty->behaviour[u"request"_s] = [this] {
        loyalty->giveDiscount(1, 10.0);
        return true;
    };
    whenKeyPressed(Qt::Key_F7);
    EXPECT_EQ(row(0).at(5), u"10.00");
    EXPECT_EQ(text("total"), u"90.00");
    whenKeyPressed(Qt::Key_F8);
    EXPECT_EQ(text("title"), u"Касса свободна");
    EXPECT_TRUE(part<QPlainTextEdit>("paper")->toPlainText().contains(u"Молоко"));
}

TEST_F(MainWindowTest, MessagesStayUntilTheyAreRead)
{
    whenScanned(u"1002"_s);
    loyalty->setMessageToCashier(u"Предложите пакет"_s);
    whenKeyPressed(Qt::Key_F7);
    whenKeyPressed(Qt::Key_F8);
    EXPECT_EQ(items("messages"), QStringList{u"Предложите пакет"_s});
    whenTyped(u"10"_s);
    whenKeyPressed(Qt::Key_F12);
    EXPECT_TRUE(items("messages").isEmpty());
    EXPECT_EQ(part<QLineEdit>("input")->text(), u"10");
}

TEST_F(MainWindowTest, TheStateIsAlwaysTold)
{
    EXPECT_EQ(text("serviceState"), u"Система лояльности: запросов ещё не было");
    EXPECT_EQ(text("queueState"), u"Очередь отправки пуста");
    EXPECT_FALSE(part<QLabel>("offlineSign")->isVisible());
}

TEST_F(MainWindowTest, TheStateSaysThatLoyaltyIsOff)
{
    till::WithoutLoyalty without;
    till->switchLoyaltyOff(without);
    desk.start();
    window.refresh();
    EXPECT_EQ(text("serviceState"), u"Лояльность на этой кассе выключена");
}

TEST_F(MainWindowTest, WithoutAConnectionASignSaysWhatIsPossible)
{
    whenScanned(u"1002"_s);
    loyalty->behaviour[u"request"_s] = [] {
        MockFactory<RestClient>::create()->post(QUrl(u"mailto:nobody"_s), {}, {});
        return true;
    };
    whenKeyPressed(Qt::Key_F7);
    EXPECT_TRUE(part<QLabel>("offlineSign")->isVisible());
    EXPECT_TRUE(text("serviceState").startsWith(u"Система лояльности: нет связи с "));
}

TEST_F(MainWindowTest, ADocumentThatWasLeftOpenIsShownAgain)
{
    whenScanned(u"1002"_s);
    whenScanned(u"2900000000017"_s);
    till::Desk next(*till, services.exchanges(), recorder, cashier);
    next.start();
    till::MainWindow restarted(next);
    EXPECT_EQ(restarted.findChild<QTableWidget *>(u"positions"_s)->item(0, 1)->text(), u"1002");
    EXPECT_EQ(restarted.findChild<QLabel *>(u"customerCard"_s)->text(), u"2900000000017");
    EXPECT_EQ(restarted.findChild<QLabel *>(u"total"_s)->text(), u"100.00");
}

} // namespace
