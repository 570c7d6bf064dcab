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

std::shared_ptr<SharedKnowledge> ExchangeMemory::recall(
    const ExchangeSettings &settings, TimePoint now)
{
    TrustBasis basis = trustBasis(settings);
    const std::lock_guard lock(m_mutex);
    if (!m_authorities || m_basis != basis || now - m_begun >= longest) {
        m_basis = std::move(basis);
        m_begun = now;
        m_authorities = std::make_shared<Authorities>(settings);
        m_knowledge.reset();
    }
    if (!m_knowledge) {
        m_knowledge = std::make_shared<SharedKnowledge>();
        m_knowledge->authorities = m_authorities;
    }
    return m_knowledge;
}

void ExchangeMemory::forget(const std::shared_ptr<SharedKnowledge> &knowledge)
{
    const std::lock_guard lock(m_mutex);
    if (m_knowledge == knowledge)
        m_knowledge.reset();
}
