#pragma once

#include "tests/support/hostfixture.h"
#include "tests/till/window/windowhands.h"
#include "till/run/workplace.h"
#include "till/window/busywatch.h"
#include "till/window/demo/demo.h"
#include "till/window/mainwindow.h"
#include "till/window/windowcashier.h"

#include <memory>

/// A cashier's window as the program has it, on a workplace of its own.
struct OpenedWindow
{
    explicit OpenedWindow(const till::RunOptions &options)
        : workplace(options, cashier)
        , desk(workplace.till(), workplace.exchanges(), workplace.recorder(), cashier)
        , window(desk)
        , watch(window.veil())
    {
        desk.setPaymentForm([this](double rest) { return cashier.takeMoney(rest); });
        cashier.sitDownAt(window, [this] { window.uncover(); });
        desk.start();
        window.refresh();
    }

    till::WindowCashier cashier;
    till::Workplace workplace;
    till::Desk desk;
    till::MainWindow window;
    till::BusyWatch watch;
};

/// The window with the real plug-in and a `korvel-service` of its own, over HTTP, selling the
/// sample catalogue.
class SaleFixture : public HostFixture, public WindowHands
{
public:
    /// @param settings more of the configuration, beginning in the section "Till".
    explicit SaleFixture(const QByteArray &settings = "language=ru\n");
    ~SaleFixture() override;

    [[nodiscard]] QWidget &shown() const override { return m_opened->window; }
    [[nodiscard]] till::Desk &desk() const { return m_opened->desk; }
    [[nodiscard]] till::MainWindow &window() const { return m_opened->window; }

    /// Ends the till, and starts another one on the same state folder.
    void givenRestart();
    void givenWindowOf(const QSize &size);
    /// The service does not answer any more; calculates, and reads that there is no connection.
    void whenConnectionIsLost();
    /// Closes the cheque; the rest is paid in cash.
    void whenPaidAndClosed();
    /// Types a text into the form that opens next, and enters it.
    void whenFormOpensEnter(const QString &text);
    static void click(const QDialog &dialog, const char *button);

private:
    void open();

    QTemporaryDir m_folder;
    till::DemoService m_service;
    till::RunOptions m_options;
    std::unique_ptr<OpenedWindow> m_opened;
    QSize m_size{1024, 768};
};
