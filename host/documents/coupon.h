#pragma once

#include "host/export.h"

#include <QString>

/// A paper coupon on a document.
class POSHOST_EXPORT Coupon
{
public:
    Coupon() = default;
    explicit Coupon(const QString &number)
        : m_number(number)
        , m_displayedNumber(number)
    { }

    [[nodiscard]] QString getNumber() const { return m_number; }
    /// What the cheque view shows; the number itself unless a plug-in knows better.
    [[nodiscard]] QString getDisplayedNumber() const { return m_displayedNumber; }
    void setDisplayedNumber(const QString &text) { m_displayedNumber = text; }

private:
    QString m_number;
    QString m_displayedNumber;
};
