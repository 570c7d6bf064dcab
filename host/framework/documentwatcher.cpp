#include "host/framework/documentwatcher.h"

template class Singleton<DocumentWatcher>;

DocumentWatcher::~DocumentWatcher() = default;

void DocumentWatcher::couponChanged(const QString &number, const QString &displayedNumber)
{
    if (m_couponObserver)
        m_couponObserver(number, displayedNumber);
}

void DocumentWatcher::setCouponObserver(CouponObserver observer)
{
    m_couponObserver = std::move(observer);
}
