// While the loyalty service is asked the window says so, and takes nothing.

#include "host/framework/activitynotifier.h"
#include "host/net/restclient.h"
#include "tests/support/printers.h"
#include "tests/support/scriptedserver.h"
#include "tests/till/window/windowfixture.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Counts the paintings of a widget.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

class BusyVeilTest : public WindowFixture
{
public:
    BusyVeilTest() { whenScanned(u"1002"_s); }
    void givenDuringRequest(const std::function<void()> &look)
    {
        loyalty->behaviour[u"request"_s] = [look] {
            look();
            return true;
        };
    }
};

TEST_F(BusyVeilTest, IsPaintedBeforeTheRequestAndGoneBehindIt)
{
    PaintCount paintings(window.veil());
    int paintedBefore = 0;
    givenDuringRequest([&] {
        EXPECT_TRUE(window.veil().isVisible());
        EXPECT_EQ(window.veil().text(), u"Обращение к системе лояльности");
        EXPECT_EQ(window.veil().size(), window.size());
        EXPECT_EQ(window.childAt(window.rect().center()), &window.veil());
        paintedBefore = paintings.count;
    });
    whenKeyPressed(Qt::Key_F7);
    EXPECT_EQ(paintedBefore, 1);
    EXPECT_FALSE(window.veil().isVisible());
}

TEST_F(BusyVeilTest, CountsSecondsAndPaintsEachOnce)
{
    window.veil().begin(tr::Tr(u"a"_s, u"Минуту"_s));
    PaintCount paintings(window.veil());
    for (const auto passed : {0s, 1s, 1s, 2s})
        window.veil().tick(passed);
    EXPECT_EQ(paintings.count, 2);
    EXPECT_EQ(window.veil().seconds(), u"2 с");
    window.veil().begin(tr::Tr(u"b"_s, u"Ещё раз"_s));
    EXPECT_EQ(window.veil().seconds(), QString());
    EXPECT_EQ(window.veil().text(), u"Ещё раз");
}

TEST_F(BusyVeilTest, AnExchangeThatNobodyAnnouncedBringsItUpToo)
{
    ScriptedServer server;
    server.answer("yes");
    bool wasUp = false;
    loyalty->behaviour[u"identifyByCard"_s] = [&] {
        MockFactory<RestClient>::create()->post(server.url(), {}, {});
        wasUp = window.veil().isVisible();
        return true;
    };
    whenScanned(u"2900000000017"_s);
    EXPECT_TRUE(wasUp);
    EXPECT_FALSE(window.veil().isVisible());
}

TEST_F(BusyVeilTest, WhatIsPressedMeanwhileDoesNothing)
{
    givenDuringRequest([this] {
        QCoreApplication::postEvent(part<QLineEdit>("input"),
            new QKeyEvent(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, u"7"_s));
    });
    whenKeyPressed(Qt::Key_F7);
    QCoreApplication::processEvents();
    EXPECT_EQ(part<QLineEdit>("input")->text(), QString());
}

TEST_F(BusyVeilTest, QuickScansOfGoodsAreAllTaken)
{
    loyalty->hookIn(
        control::EActionType::Input, ActionTrigger::Order::Before, [this](const control::Action &) {
            QCoreApplication::postEvent(part<QLineEdit>("input"),
                new QKeyEvent(QEvent::KeyPress, Qt::Key_7, Qt::NoModifier, u"7"_s));
            return EContext::Result::Continue;
        });
    whenScanned(u"1001"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(part<QLineEdit>("input")->text(), u"7");
}

} // namespace
