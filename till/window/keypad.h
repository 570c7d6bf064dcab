#pragma once

#include <QWidget>

class QLineEdit;

namespace till {

/// Digits, the comma and a key that wipes the last character, large enough for fingers.
class Keypad : public QWidget
{
    Q_OBJECT

public:
    /// @param target what the keys write into; not owned, must outlive this.
    explicit Keypad(QLineEdit &target, QWidget *parent = nullptr);

private:
    void press(const QString &key);

    QLineEdit &m_target;
};

} // namespace till
