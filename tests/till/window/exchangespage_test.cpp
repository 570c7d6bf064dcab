// The page with the last exchanges.

#include "host/net/restclient.h"
#include "tests/support/printers.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/window/windowfixture.h"
#include "till/window/exchangespage.h"

#include <QClipboard>

using namespace Qt::StringLiterals;

namespace {

class ExchangesPageTest : public WindowFixture
{
public:
    void givenExchange(const QByteArray &request, const QByteArray &answer)
    {
        ScriptedServer service;
        service.answer(answer);
        MockFactory<RestClient>::create()->post(service.url(), request, {});
    }
    void whenPageOpened()
    {
        whenKeyPressed(Qt::Key_E, Qt::ControlModifier);
        EXPECT_TRUE(page()->isVisible());
    }
    till::ExchangesPage *page() const { return window.findChild<till::ExchangesPage *>(); }
    QTableWidget *table() const { return part<QTableWidget>("exchanges"); }
    void whenKeyPressedThere(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(table(), key, modifiers);
    }
    QString xml(const char *name) const { return part<QPlainTextEdit>(name)->toPlainText(); }
};

TEST_F(ExchangesPageTest, TheNewestIsOnTopAndChosen)
{
    givenExchange("<one/>", "<ReturnCode>0</ReturnCode>");
    givenExchange("<two/>", "<ReturnCode>7</ReturnCode>");
    whenPageOpened();
    ASSERT_EQ(table()->rowCount(), 2);
    EXPECT_EQ(table()->item(0, 2)->text(), u"7 · ");
    EXPECT_EQ(xml("request"), u"<two/>");
    EXPECT_EQ(xml("answer"), u"<ReturnCode>7</ReturnCode>");
    whenKeyPressedThere(Qt::Key_Down);
    EXPECT_EQ(xml("request"), u"<one/>");
    EXPECT_TRUE(text("exchangeOutcome").endsWith(u"0 · успешно"));
}

TEST_F(ExchangesPageTest, ItIsOpenedOverAnOpenChequeAndLeftWithEscape)
{
    whenScanned(u"1001"_s);
    whenClicked("exchangesButton");
    EXPECT_TRUE(page()->isVisible());
    EXPECT_TRUE(table()->hasFocus());
    whenKeyPressedThere(Qt::Key_Escape);
    EXPECT_FALSE(page()->isVisible());
    EXPECT_TRUE(part<QLineEdit>("input")->hasFocus());
    EXPECT_EQ(text("total"), u"45.90");
}

TEST_F(ExchangesPageTest, KeysOfTheSaleDoNothingThere)
{
    whenScanned(u"1001"_s);
    whenPageOpened();
    for (const Qt::Key key : {Qt::Key_F8, Qt::Key_F3, Qt::Key_F7})
        whenKeyPressedThere(key);
    QTest::keyClicks(table(), u"1002"_s);
    whenKeyPressedThere(Qt::Key_Return);
    whenClicked("back");
    EXPECT_EQ(part<QTableWidget>("positions")->rowCount(), 1);
    EXPECT_EQ(part<QLineEdit>("input")->text(), QString());
}

TEST_F(ExchangesPageTest, TheKeyAndTheButtonCopyWithoutCardNumbers)
{
    givenExchange("<CardNumber>2900000000017</CardNumber>", "<a/>");
    whenPageOpened();
    EXPECT_TRUE(xml("request").contains(u"2900000000017"));
    for (const bool byKey : {true, false}) {
        QApplication::clipboard()->clear();
        if (byKey)
            whenKeyPressedThere(Qt::Key_C, Qt::ControlModifier);
        else
            whenClicked("copy");
        const QString copied = QApplication::clipboard()->text();
        EXPECT_TRUE(copied.contains(u"*********0017")) << qPrintable(copied);
        EXPECT_FALSE(copied.contains(u"2900000000017"));
    }
    EXPECT_EQ(text("exchangeNote"), u"Скопировано, номера карт скрыты");
}

TEST_F(ExchangesPageTest, WithoutExchangesItSaysSoAndCopiesNothing)
{
    whenPageOpened();
    EXPECT_EQ(text("exchangeOutcome"), u"Обменов с системой лояльности ещё не было");
    EXPECT_FALSE(part<QPushButton>("copy")->isEnabled());
}

} // namespace
