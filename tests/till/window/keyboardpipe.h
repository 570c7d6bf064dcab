#pragma once

#include <QString>

#include <linux/input-event-codes.h>

/// A keyboard for a program without a screen: a pipe that Qt reads as an input device.
class KeyboardPipe
{
public:
    KeyboardPipe();
    ~KeyboardPipe();
    Q_DISABLE_COPY_MOVE(KeyboardPipe)

    /// Value of "QT_QPA_GENERIC_PLUGINS" for the program.
    [[nodiscard]] QString plugin() const;

    /// @param key one of linux/input-event-codes.h, such as `KEY_ENTER`.
    void press(int key) const;
    /// Digits only.
    void type(const QString &digits) const;

private:
    void write(int type, int code, int value) const;

    QString m_name;
    int m_descriptor = -1;
};
