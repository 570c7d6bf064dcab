#include "simulation/measures.h"

#include <algorithm>

namespace simulation {

namespace {

void countSecond(std::vector<int> &seconds, Moment at)
{
    const auto second
        = static_cast<std::size_t>(std::chrono::floor<std::chrono::seconds>(at).count());
    if (second >= seconds.size())
        seconds.resize(second + 1);
    ++seconds[second];
}

double ratio(std::int64_t part, std::int64_t whole)
{
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

} // namespace

Measures::Measures(const std::vector<Backlog> &backlogs, Moment back)
    : m_began(backlogs.size())
    , m_back(back)
{
    for (const Backlog &backlog : backlogs) {
        m_messages += static_cast<std::int64_t>(backlog.undelivered());
        m_tillsToBegin += backlog.undelivered() > 0 ? 1 : 0;
    }
}

void Measures::noteRequest(Moment at, bool refused)
{
    ++m_requests;
    m_refused += refused ? 1 : 0;
    countSecond(m_requestsBySecond, at - m_back);
}

void Measures::noteDelivery(int till, Moment at, bool isLast)
{
    ++m_delivered;
    countSecond(m_deliveredBySecond, at - m_back);
    auto began = m_began[static_cast<std::size_t>(till)];
    if (!began) {
        began = true;
        --m_tillsToBegin;
        m_lastBegin = at - m_back;
    }
    if (isLast)
        m_emptied.push_back(at - m_back);
}

int Measures::peak() const
{
    const auto most = std::max_element(m_requestsBySecond.begin(), m_requestsBySecond.end());
    return most == m_requestsBySecond.end() ? 0 : *most;
}

double Measures::refusedShare() const
{
    return ratio(m_refused, m_requests);
}

double Measures::wastedPerMessage() const
{
    return ratio(m_requests - m_delivered, m_delivered);
}

std::optional<Moment> Measures::longestWait() const
{
    return m_tillsToBegin == 0 ? std::optional(m_lastBegin) : std::nullopt;
}

std::optional<Moment> Measures::emptyAfter() const
{
    if (!isEmpty())
        return {};
    return m_emptied.empty() ? Moment(0) : m_emptied.back();
}

std::optional<double> Measures::unfairness() const
{
    if (!isEmpty() || m_emptied.empty())
        return {};
    const Moment median = m_emptied[(m_emptied.size() - 1) / 2];
    if (median == Moment(0))
        return {};
    return ratio(m_emptied.back().count(), median.count());
}

} // namespace simulation
