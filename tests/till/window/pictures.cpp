// Pictures of the window in its main states, into the folder that PICTURES names. Made by
// tools/screenshots on a screen of the size of SCREEN, such as "1024x768".

#include "tests/till/window/salefixture.h"
#include "till/language/language.h"
#include "till/window/questiondialog.h"
#include "till/window/style.h"
#include "till/window/texts.h"

#include <QDir>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

QSize screenSize()
{
    return QGuiApplication::primaryScreen()->size();
}

class Pictures : public SaleFixture, public testing::TestWithParam<const char *>
{
public:
    Pictures()
        : SaleFixture(QByteArray("language=") + GetParam()
            + "\ndigitalKeyboard=true\n[KorvelLoyaltyOnline]\nuseConfirmation=true\n"
              "noConfirmationBonusLimit=300\n[Ui.korvelVerification]\nshowDigitalKeyboard=true\n")
    {
        givenWindowOf(screenSize());
        window().move(0, 0);
    }

    static void take(const QString &name)
    {
        // What was shown last is on the screen when the server has answered.
        for (int round = 0; round < 3; ++round)
            QTest::qWait(100);
        const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(0);
        const QString file
            = u"%1/%2-%3-%4x%5.png"_s
                  .arg(qEnvironmentVariable("PICTURES"), name, QString::fromLatin1(GetParam()))
                  .arg(picture.width())
                  .arg(picture.height());
        EXPECT_TRUE(picture.save(file)) << qPrintable(file);
    }
    void whenDialogIsTaken(const QString &name)
    {
        whenDialogOpens([name](QDialog &dialog) {
            take(name);
            dialog.reject();
        });
    }
    void givenCalculatedSale()
    {
        whenScanned(u"2900000000017"_s);
        for (const QString &scan : {u"1001"_s, u"1004"_s, u"1003"_s, u"9900000000018"_s})
            whenScanned(scan);
        whenTyped(u"0,742"_s);
        whenKeyPressed(Qt::Key_F2);
        whenKeyPressed(Qt::Key_F7);
    }
};

TEST_P(Pictures, Empty)
{
    take(u"empty"_s);
}

TEST_P(Pictures, Sale)
{
    givenCalculatedSale();
    whenTyped(u"120"_s);
    whenKeyPressed(Qt::Key_F5);
    take(u"sale"_s);
    whenDialogOpens([](QDialog &dialog) {
        QTest::keyClicks(dialog.findChild<QLineEdit *>(), u"2000"_s);
        take(u"payment"_s);
        dialog.reject();
    });
    whenKeyPressed(Qt::Key_F8);
    whenClicked("exchangesButton");
    take(u"exchanges"_s);
}

TEST_P(Pictures, Code)
{
    givenCalculatedSale();
    whenTyped(u"350"_s);
    whenDialogIsTaken(u"code"_s);
    whenKeyPressed(Qt::Key_F5);
}

TEST_P(Pictures, Question)
{
    whenScanned(u"2900000000062"_s);
    whenScanned(u"1007"_s);
    whenDialogIsTaken(u"question"_s);
    whenKeyPressed(Qt::Key_F7);
}

TEST_P(Pictures, Offline)
{
    givenCalculatedSale();
    whenConnectionIsLost();
    whenPaidAndClosed();
    whenScanned(u"1002"_s);
    whenScanned(u"1008"_s);
    take(u"offline"_s);
}

TEST_P(Pictures, Return)
{
    givenCalculatedSale();
    whenDialogOpens([](QDialog &dialog) { click(dialog, "cash"); });
    whenKeyPressed(Qt::Key_F8);
    whenTyped(u"1"_s);
    whenKeyPressed(Qt::Key_F10);
    take(u"return"_s);
}

TEST_P(Pictures, Offer)
{
    window().hide();
    till::QuestionDialog offer(
        till::texts::demoOffer, till::texts::demoStart, till::texts::demoDecline, nullptr);
    offer.show();
    take(u"offer"_s);
}

INSTANTIATE_TEST_SUITE_P(Languages, Pictures, testing::Values("ru", "en"));

} // namespace

int main(int argc, char *argv[])
{
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    till::applyStyle();
    return RUN_ALL_TESTS();
}
