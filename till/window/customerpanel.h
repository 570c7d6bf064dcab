#pragma once

#include "till/window/chequeview.h"

#include <QWidget>

class QFormLayout;
class QLabel;

namespace till {

/// The customer's card with its points.
class CustomerPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CustomerPanel(QWidget *parent = nullptr);

    void showCustomer(const CustomerView &customer);

private:
    static QLabel *addLine(QFormLayout &form, const QString &name, const QString &objectName);

    QLabel *m_card;
    QLabel *m_type;
    QLabel *m_balance;
    QLabel *m_available;
    QLabel *m_chosen;
    QLabel *m_earned;
    QLabel *m_status;
};

} // namespace till
