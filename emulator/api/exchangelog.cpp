#include "emulator/api/exchangelog.h"

#include <algorithm>

namespace emulator {

namespace {

constexpr std::size_t greatestCount = 500;
constexpr qsizetype greatestBytes = qsizetype{32} * 1024 * 1024;

qsizetype sizeOf(const Exchange &exchange)
{
    return exchange.request.size() + exchange.answer.size();
}

} // namespace

void ExchangeLog::add(Exchange exchange)
{
    exchange.id = ++m_lastId;
    m_bytes += sizeOf(exchange);
    m_exchanges.push_back(std::move(exchange));
    while (
        m_exchanges.size() > greatestCount || (m_bytes > greatestBytes && m_exchanges.size() > 1)) {
        m_bytes -= sizeOf(m_exchanges.front());
        m_exchanges.pop_front();
    }
}

void ExchangeLog::clear()
{
    m_exchanges.clear();
    m_bytes = 0;
    ++m_timesCleared;
}

const Exchange *ExchangeLog::find(qint64 id) const
{
    const auto found = std::lower_bound(m_exchanges.begin(), m_exchanges.end(), id,
        [](const Exchange &exchange, qint64 wanted) { return exchange.id < wanted; });
    return found != m_exchanges.end() && found->id == id ? &*found : nullptr;
}

} // namespace emulator
