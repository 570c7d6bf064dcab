#pragma once

#include "tests/till/support/tillfixture.h"
#include "tests/till/window/windowhands.h"
#include "till/transcript/recordingservices.h"
#include "till/window/busyveil.h"
#include "till/window/busywatch.h"
#include "till/window/desk.h"
#include "till/window/mainwindow.h"
#include "till/window/windowcashier.h"

/// The window over the fixture's till, used as a person would.
class WindowFixture : public TillFixture, public WindowHands
{
public:
    WindowFixture()
        : services(recorder, cashier)
        , desk(*till, services.exchanges(), recorder, cashier)
        , window(desk)
        , watch(window.veil())
    {
        cashier.sitDownAt(window, [this] { window.uncover(); });
        window.resize(1024, 768);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    [[nodiscard]] QWidget &shown() const override { return const_cast<till::MainWindow &>(window); }

    till::WindowCashier cashier;
    till::Recorder recorder;
    till::RecordingServices services;
    till::Desk desk;
    till::MainWindow window;
    till::BusyWatch watch;
};
