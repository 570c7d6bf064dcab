#pragma once

#include "host/dialogs/dialog.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace till {

/// A form for one text, typed, scanned or tapped; goes only with a text that its expression takes.
class TextFormDialog : public QDialog
{
    Q_OBJECT

public:
    TextFormDialog(const InputTextFormParameters &form, QWidget *parent);

    [[nodiscard]] QString text() const;

    /// Says what is wrong, and stays, when the text does not match the expression.
    void accept() override;

private:
    [[nodiscard]] QPushButton *makeButton(const tr::Tr &text, const QString &objectName);

    InputTextFormParameters m_form;
    QLineEdit *m_input;
    QLabel *m_error;
};

} // namespace till
