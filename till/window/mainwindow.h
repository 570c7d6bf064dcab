#pragma once

#include "till/window/desk.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;

namespace till {

class BusyVeil;
class CustomerPanel;
class ExchangesPage;
class PositionTable;
class QueueGlance;

/// The cashier's window: shows a desk and hands it what is typed, scanned and clicked.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    /// @param desk not owned; must outlive the window.
    explicit MainWindow(Desk &desk);

    /// Looks at a shared queue with that from now on.
    /// @param glance not owned; must outlive the window.
    void watchQueueWith(QueueGlance &glance);
    /// What stands above everything else all the time; empty: nothing.
    void setBand(const QString &text);
    /// Shows itself over the whole screen, also where no window manager enlarges it.
    void fillScreen();

    /// Shows the desk as it is now.
    void refresh();
    /// Takes the veil away, and drops what was typed behind it: for an operation that has ended and
    /// for a dialog that opens.
    void uncover();
    /// What lies over the window while the loyalty service is asked; lives as long as the window.
    [[nodiscard]] BusyVeil &veil() const { return *m_veil; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    [[nodiscard]] QWidget *makeSalePage();
    [[nodiscard]] QWidget *makeHead();
    [[nodiscard]] QPushButton *makeTool(
        const QString &text, const QString &objectName, const QKeySequence &key);
    [[nodiscard]] QWidget *makeChequeSide();
    [[nodiscard]] QWidget *makeCustomerSide();
    [[nodiscard]] QWidget *makeTotalRow();
    [[nodiscard]] QWidget *makeStateLine();
    void lookAtServiceNowAndThen();
    void refreshState();
    void showExchanges();
    void showSale();
    void openServicePage();
    void enter();
    void perform(Function function);
    void finish(bool isTaken);

    Desk &m_desk;
    QueueGlance *m_glance = nullptr;
    QLabel *m_band;
    QStackedWidget *m_pages;
    ExchangesPage *m_exchanges;
    QLabel *m_title;
    QLabel *m_offlineSign;
    PositionTable *m_positions;
    QListWidget *m_messages;
    QLineEdit *m_input;
    QLabel *m_total;
    CustomerPanel *m_customer;
    QListWidget *m_coupons;
    QLabel *m_paperName;
    QPlainTextEdit *m_paper;
    QLabel *m_serviceState;
    QLabel *m_queueState;
    BusyVeil *m_veil;
};

} // namespace till
