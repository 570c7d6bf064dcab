#pragma once

#include "tests/till/support/tillfixture.h"
#include "till/transcript/recordingservices.h"
#include "till/window/busyveil.h"
#include "till/window/busywatch.h"
#include "till/window/desk.h"
#include "till/window/mainwindow.h"
#include "till/window/windowcashier.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

/// The window over the fixture's till, used as a person would: keys and clicks.
class WindowFixture : public TillFixture
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

    ~WindowFixture() override { EXPECT_EQ(m_awaitedDialogs, 0) << "a dialog did not open"; }

    /// Does something with the dialog that opens next, as soon as it waits for an answer.
    void whenDialogOpens(const std::function<void(QDialog &)> &act)
    {
        ++m_awaitedDialogs;
        awaitDialog(act);
    }
    /// Typed or scanned, with Enter behind it.
    void whenScanned(const QString &data)
    {
        QTest::keyClicks(part<QLineEdit>("input"), data);
        whenKeyPressed(Qt::Key_Return);
    }
    void whenTyped(const QString &text) { QTest::keyClicks(part<QLineEdit>("input"), text); }
    void whenKeyPressed(Qt::Key key)
    {
        // Without a window manager nobody activates it behind a dialog.
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(part<QLineEdit>("input"), key);
    }
    void whenClicked(const char *button)
    {
        QTest::mouseClick(part<QPushButton>(button), Qt::LeftButton);
    }

    template <typename Widget> [[nodiscard]] Widget *part(const char *name) const
    {
        auto *found = window.findChild<Widget *>(QString::fromLatin1(name));
        EXPECT_TRUE(found) << name;
        return found;
    }
    [[nodiscard]] QString text(const char *name) const { return part<QLabel>(name)->text(); }
    [[nodiscard]] QStringList items(const char *name) const
    {
        QStringList texts;
        const auto *list = part<QListWidget>(name);
        for (int row = 0; row < list->count(); ++row)
            texts.append(list->item(row)->text());
        return texts;
    }
    [[nodiscard]] QStringList row(int number) const
    {
        QStringList cells;
        const auto *table = part<QTableWidget>("positions");
        for (int column = 0; column < table->columnCount(); ++column)
            cells.append(table->item(number, column)->text());
        return cells;
    }

    till::WindowCashier cashier;
    till::Recorder recorder;
    till::RecordingServices services;
    till::Desk desk;
    till::MainWindow window;
    till::BusyWatch watch;

private:
    void awaitDialog(const std::function<void(QDialog &)> &act)
    {
        QTimer::singleShot(0, &window, [this, act] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return awaitDialog(act);
            --m_awaitedDialogs;
            act(*dialog);
        });
    }

    int m_awaitedDialogs = 0;
};
