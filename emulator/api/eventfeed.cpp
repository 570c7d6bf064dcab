#include "emulator/api/eventfeed.h"

#include "emulator/api/json.h"

namespace emulator {

namespace {

// A listener that is busy with some misses older ones rather than falling behind.
constexpr qint64 toldAtOnce = 200;

Json exchangesAfter(const ExchangeLog &log, qint64 told)
{
    Json list = Json::array();
    for (const Exchange &exchange : log.exchanges())
        if (exchange.id > told)
            list.push_back(exchangeJson(exchange, false));
    return list;
}

} // namespace

EventFeed::EventFeed(const Desk &desk, const FaultPlan &faults, const ExchangeLog &log)
    : m_desk(desk)
    , m_faults(faults)
    , m_log(log)
    , m_timesCleared(log.timesCleared())
{ }

QByteArray EventFeed::next()
{
    const bool isReset = m_log.timesCleared() != m_timesCleared;
    const bool hasExchanges = m_log.lastId() != m_told;
    const Json faults = faultsJson(m_faults);
    const bool hasFaults = faults.dump() != m_faultsTold;
    if (!m_isFirst && !isReset && !hasExchanges && !hasFaults)
        return {};
    Json news = {{"reset", m_isFirst || isReset}, {"faults", faults}};
    if (m_isFirst || isReset || hasExchanges) {
        news["codes"] = codesJson(m_desk);
        news["exchanges"] = exchangesAfter(m_log, std::max(m_told, m_log.lastId() - toldAtOnce));
    }
    m_isFirst = false;
    m_timesCleared = m_log.timesCleared();
    m_told = m_log.lastId();
    m_faultsTold = faults.dump();
    return "data: " + QByteArray::fromStdString(news.dump()) + "\n\n";
}

} // namespace emulator
