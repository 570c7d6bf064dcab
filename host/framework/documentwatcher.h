#pragma once

#include "host/export.h"
#include "host/framework/singleton.h"

#include <QString>

#include <functional>

/// Tells the cheque view what changed beside the positions.
/// `Singleton<DocumentWatcher>::instance()`.
class POSHOST_EXPORT DocumentWatcher
{
public:
    using CouponObserver
        = std::function<void(const QString &number, const QString &displayedNumber)>;

    DocumentWatcher() = default;
    virtual ~DocumentWatcher();
    Q_DISABLE_COPY_MOVE(DocumentWatcher)

    /// A coupon of the current document shows another text from now on.
    virtual void couponChanged(const QString &number, const QString &displayedNumber);
    /// Sets who shows it; an empty function: nobody.
    void setCouponObserver(CouponObserver observer);

private:
    CouponObserver m_couponObserver;
};

extern template class POSHOST_EXPORT Singleton<DocumentWatcher>;
