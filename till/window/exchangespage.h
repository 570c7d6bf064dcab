#pragma once

#include "till/core/exchangelog.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace till {

/// What the till asked the loyalty service last, and what it answered.
class ExchangesPage : public QWidget
{
    Q_OBJECT

public:
    explicit ExchangesPage(QWidget *parent = nullptr);

    /// Shows these, the newest on top and chosen.
    /// @param records oldest first, as the log has them.
    void showExchanges(const QList<ExchangeRecord> &records);

Q_SIGNALS:
    /// The cashier goes back to the sale.
    void left();

private:
    [[nodiscard]] QHBoxLayout *makeHead();
    [[nodiscard]] QPushButton *makeButton(
        const QString &text, const QString &objectName, const QKeySequence &key);
    void fill(int row, const ExchangeRecord &record);
    void showChosen();
    void copyChosen();

    QList<ExchangeRecord> m_records; ///< newest first
    QTableWidget *m_table;
    QLabel *m_outcome;
    QPlainTextEdit *m_request;
    QPlainTextEdit *m_answer;
    QLabel *m_note;
    QPushButton *m_copy = nullptr;
};

} // namespace till
