// Whole sales by keys and clicks: the real plug-in, a real service, real HTTP.

#include "tests/support/printers.h"
#include "tests/till/window/salefixture.h"

using namespace Qt::StringLiterals;

namespace {

const QString card = u"2900000000017"_s;
const QString stickerCard = u"2900000000062"_s;

class SaleTest : public SaleFixture, public testing::Test
{
public:
    using SaleFixture::SaleFixture;
    QString paper() const { return part<QPlainTextEdit>("paper")->toPlainText().simplified(); }
    void thenDeskIsFree() const { EXPECT_EQ(text("title"), u"Касса свободна"); }
};

TEST_F(SaleTest, AChequeWithACardIsSold)
{
    whenScanned(card);
    EXPECT_EQ(text("customerStatus"), u"карта принята");
    EXPECT_EQ(text("customerBalance"), u"500,00");
    whenScanned(u"4600000010015"_s);
    whenScanned(u"1004"_s);
    whenKeyPressed(Qt::Key_F7);
    EXPECT_EQ(text("customerType"), u"Золотая");
    EXPECT_EQ(row(0).at(5), u"4,59");
    EXPECT_EQ(text("serviceState"), u"Система лояльности: на связи");
    whenPaidAndClosed();
    thenDeskIsFree();
    EXPECT_TRUE(paper().contains(u"Начислено баллов")) << qPrintable(paper());
}

TEST_F(SaleTest, TheStickersAreDeclined)
{
    whenScanned(stickerCard);
    whenScanned(u"1007"_s);
    QString asked;
    whenDialogOpens([&asked](QDialog &dialog) {
        asked = dialog.findChild<QLabel *>(u"question"_s)->text();
        click(dialog, "reject");
    });
    whenKeyPressed(Qt::Key_F7);
    EXPECT_EQ(asked, u"Использовать фишки?");
    EXPECT_EQ(text("total"), u"189,00");
    whenPaidAndClosed();
    thenDeskIsFree();
}

TEST_F(SaleTest, ARefusedCardIsTold)
{
    whenScanned(u"2900000000031"_s);
    EXPECT_TRUE(text("customerStatus").startsWith(u"карта 2900000000031 не принята: "))
        << qPrintable(text("customerStatus"));
    EXPECT_EQ(items("messages").size(), 1);
}

TEST_F(SaleTest, WithoutTheServiceTheSaleGoesOnAndTheChequeWaits)
{
    whenScanned(card);
    whenScanned(u"1002"_s);
    whenConnectionIsLost();
    EXPECT_TRUE(part<QLabel>("offlineSign")->isVisible());
    EXPECT_TRUE(text("serviceState").startsWith(u"Система лояльности: нет связи с "));
    whenPaidAndClosed();
    thenDeskIsFree();
    EXPECT_TRUE(text("queueState").startsWith(u"Ждёт отправки 1 сообщение, "))
        << qPrintable(text("queueState"));
}

TEST_F(SaleTest, AClosedChequeIsTakenBack)
{
    whenScanned(card);
    whenScanned(u"1002"_s);
    whenKeyPressed(Qt::Key_F7);
    whenPaidAndClosed();
    whenTyped(u"1"_s);
    whenKeyPressed(Qt::Key_F10);
    EXPECT_EQ(text("title"), u"Возврат № 2 по чеку № 1");
    whenKeyPressed(Qt::Key_F8);
    thenDeskIsFree();
    EXPECT_TRUE(paper().contains(u"Баллы за покупку пересчитаны")) << qPrintable(paper());
}

TEST_F(SaleTest, ARestartedTillShowsTheOpenCheque)
{
    whenScanned(card);
    whenScanned(u"1004"_s);
    whenKeyPressed(Qt::Key_F7);
    const auto shownBefore = desk().cheque();
    const QString paperBefore = paper();
    givenRestart();
    EXPECT_EQ(desk().cheque(), shownBefore);
    EXPECT_EQ(row(0).at(1), u"1004");
    EXPECT_EQ(text("customerCard"), card);
    EXPECT_TRUE(paperBefore.contains(u"Кофе"));
    whenPaidAndClosed();
    thenDeskIsFree();
}

TEST_F(SaleTest, TheExchangesOfTheSaleCanBeLookedAtMeanwhile)
{
    whenScanned(card);
    whenScanned(u"1002"_s);
    whenKeyPressed(Qt::Key_F7);
    whenClicked("exchangesButton");
    const auto *table = part<QTableWidget>("exchanges");
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(0, 1)->text(), u"Расчёт");
    EXPECT_EQ(table->item(1, 1)->text(), u"Баланс");
    EXPECT_TRUE(
        part<QPlainTextEdit>("answer")->toPlainText().contains(u"<ReturnCode>0</ReturnCode>"));
    EXPECT_FALSE(part<QPlainTextEdit>("request")->toPlainText().contains(u"Authorization"));
}

class ConfirmedSaleTest : public SaleTest
{
public:
    ConfirmedSaleTest()
        : SaleTest("language=ru\n[KorvelLoyaltyOnline]\nuseConfirmation="
                   "true\nnoConfirmationBonusLimit=300\n"
                   "[Ui.korvelVerification]\nshowDigitalKeyboard=true\n")
    { }
};

TEST_F(ConfirmedSaleTest, PointsPayWithTheCodeOnTheDigitalKeyboard)
{
    whenScanned(card);
    whenScanned(u"1004"_s);
    whenTyped(u"2"_s);
    whenKeyPressed(Qt::Key_F2);
    whenKeyPressed(Qt::Key_F7);
    EXPECT_EQ(text("customerAvailable"), u"399,00");
    whenTyped(u"350"_s);
    whenDialogOpens([](QDialog &dialog) {
        for (const char *key : {"key4", "key8", "key2", "key9"})
            click(dialog, key);
        click(dialog, "accept");
    });
    whenKeyPressed(Qt::Key_F5);
    EXPECT_EQ(text("customerChosen"), u"350,00") << qPrintable(items("messages").join(u"; "));
    EXPECT_EQ(row(0).at(7), u"350,00");
    whenPaidAndClosed();
    thenDeskIsFree();
    whenClicked("exchangesButton");
    EXPECT_FALSE(part<QPlainTextEdit>("request")->toPlainText().contains(u"4829"));
}

TEST_F(ConfirmedSaleTest, AWrongCodeIsToldAndNoPointsPay)
{
    whenScanned(card);
    whenScanned(u"1004"_s);
    whenTyped(u"2"_s);
    whenKeyPressed(Qt::Key_F2);
    whenKeyPressed(Qt::Key_F7);
    whenTyped(u"350"_s);
    whenFormOpensEnter(u"0000"_s);
    whenKeyPressed(Qt::Key_F5);
    EXPECT_TRUE(items("messages").contains(u"Неверный код подтверждения"));
    EXPECT_EQ(text("customerChosen"), QString());
}

} // namespace
