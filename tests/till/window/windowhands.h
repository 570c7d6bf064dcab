#pragma once

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

/// Uses a window as a person would: keys and clicks; and looks at what it shows.
class WindowHands
{
public:
    WindowHands() = default;
    virtual ~WindowHands() { EXPECT_EQ(m_awaitedDialogs, 0) << "a dialog did not open"; }
    Q_DISABLE_COPY_MOVE(WindowHands)

    /// The window that is used now.
    [[nodiscard]] virtual QWidget &shown() const = 0;

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
    void whenKeyPressed(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        // Without a window manager nobody activates it behind a dialog.
        shown().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown()));
        QTest::keyClick(part<QLineEdit>("input"), key, modifiers);
    }
    void whenClicked(const char *button)
    {
        QTest::mouseClick(part<QPushButton>(button), Qt::LeftButton);
    }

    template <typename Widget> [[nodiscard]] Widget *part(const char *name) const
    {
        auto *found = shown().findChild<Widget *>(QString::fromLatin1(name));
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

private:
    void awaitDialog(const std::function<void(QDialog &)> &act)
    {
        QTimer::singleShot(0, &shown(), [this, act] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!dialog)
                return awaitDialog(act);
            --m_awaitedDialogs;
            const QPointer<QDialog> opened(dialog);
            // Without a window manager nobody activates it; and Qt takes a dialog for active when
            // the window behind it is.
            opened->activateWindow();
            EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == opened; }));
            act(*opened);
            // Otherwise the test would wait for an answer for ever.
            if (opened && opened->isVisible()) {
                ADD_FAILURE() << "the dialog was not answered";
                opened->reject();
            }
        });
    }

    int m_awaitedDialogs = 0;
};
