#include "till/core/exchangelog.h"

namespace till {

void ExchangeLog::add(const ExchangeRecord &record)
{
    if (m_records.size() == capacity)
        m_records.removeFirst();
    m_records.append(record);
    m_records.last().request.truncate(longestText);
    m_records.last().answer.truncate(longestText);
}

} // namespace till
