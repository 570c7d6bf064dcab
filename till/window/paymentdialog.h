#pragma once

#include "till/core/till.h"

#include <QDialog>

#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace till {

/// What the customer gives.
struct Tender
{
    PaymentKind kind = PaymentKind::Cash;
    std::optional<double> amount; ///< nothing: exactly what is to be paid
};

/// Asks how the customer pays: cash, with the change that is to be given back, or by card.
class PaymentDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param rest what is to be paid, greater than 0.
    PaymentDialog(double rest, QWidget *parent);

    /// What was given; only once the dialog was accepted.
    [[nodiscard]] Tender tender() const { return m_tender; }

private:
    [[nodiscard]] QPushButton *makeButton(const QString &text, const QString &objectName);
    [[nodiscard]] bool isFit() const;
    [[nodiscard]] std::optional<double> given() const;
    void showChange();
    void payCash();
    void payByCard();
    void complain(const QString &text);

    double m_rest;
    Tender m_tender;
    QLineEdit *m_given;
    QLabel *m_change;
    QLabel *m_error;
};

} // namespace till
