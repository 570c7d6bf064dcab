#pragma once

#include "emulator/api/exchangelog.h"
#include "emulator/desk/desk.h"
#include "emulator/faults/faultplan.h"
#include "emulator/http/message.h"

namespace emulator {

/// Tells one listener what is new, as JSON of the members that docs/service.md lists: the first
/// piece has all that is there, the ones after it what has come since.
class EventFeed : public EventSource
{
public:
    /// Its parts must outlive it.
    EventFeed(const Desk &desk, const FaultPlan &faults, const ExchangeLog &log);

    QByteArray next() override;

private:
    const Desk &m_desk;
    const FaultPlan &m_faults;
    const ExchangeLog &m_log;
    qint64 m_told = 0; ///< the last exchange
    int m_timesCleared = 0;
    std::string m_faultsTold; ///< as they were written
    bool m_isFirst = true;
};

} // namespace emulator
