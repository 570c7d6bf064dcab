#pragma once

#include "host/framework/tr.h"

#include <QDialog>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace till {

/// A text with one large button, or with two of which the first accepts.
///
/// A scanner is a keyboard that ends with Enter, so a stray scan would answer a question that
/// nobody has read. Enter answers nothing when characters were typed before it; it forgets them,
/// and the next one answers.
class QuestionDialog : public QDialog
{
    Q_OBJECT

public:
    /// @param reject empty: there is nothing to choose.
    QuestionDialog(const tr::Tr &text, const tr::Tr &accept, const tr::Tr &reject, QWidget *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QPushButton *addButton(QHBoxLayout &buttons, const tr::Tr &text, const QString &objectName);
    bool takesForScan(const QKeyEvent &event);

    QLabel *m_hint;
    bool m_isScanning = false; ///< characters came, their Enter did not yet
};

} // namespace till
