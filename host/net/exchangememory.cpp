#include "host/net/exchangememory.h"

#include "host/net/curlhandle.h"

ExchangeMemory &ExchangeMemory::instance()
{
    // Set up before this object is, libcurl outlives it.
    static const bool ready = CurlHandle::setUpLibrary();
    Q_UNUSED(ready)
    static ExchangeMemory memory;
    return memory;
}

std::shared_ptr<CurlShare> ExchangeMemory::recall(const ExchangeSettings &settings, TimePoint now)
{
    TrustBasis basis = trustBasis(settings);
    const std::lock_guard lock(m_mutex);
    if (m_share && m_basis == basis && now - m_begun < longest)
        return m_share;
    m_basis = std::move(basis);
    m_begun = now;
    m_share = std::make_shared<CurlShare>();
    return m_share;
}

void ExchangeMemory::forget(const std::shared_ptr<CurlShare> &share)
{
    const std::lock_guard lock(m_mutex);
    if (m_share == share)
        m_share.reset();
}
