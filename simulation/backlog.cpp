#include "simulation/backlog.h"

#include <algorithm>

namespace simulation {

// Messages behind one that is still to come are so too.
bool Backlog::isStillToCome(const Message &message, Moment now)
{
    return message.attempts == 0 && message.due > now;
}

void Backlog::append(Moment enqueued)
{
    m_messages.emplace_back().due = CompactMoment(enqueued);
    ++m_undelivered;
}

std::optional<std::size_t> Backlog::take(Moment now, std::size_t position)
{
    for (std::size_t i = std::max(position, m_first); i < m_messages.size(); ++i) {
        Message &message = m_messages[i];
        if (message.state == State::Waiting && message.due <= now) {
            message.state = State::Taken;
            return i;
        }
        if (isStillToCome(message, now))
            break;
    }
    return {};
}

int Backlog::attempts(std::size_t position) const
{
    return static_cast<int>(m_messages[position].attempts);
}

void Backlog::noteDelivered(std::size_t position)
{
    m_messages[position].state = State::Delivered;
    --m_undelivered;
    while (m_first < m_messages.size() && m_messages[m_first].state == State::Delivered)
        ++m_first;
}

void Backlog::noteFailure(std::size_t position, Moment nextAttempt)
{
    Message &message = m_messages[position];
    message.state = State::Waiting;
    message.due = CompactMoment(nextAttempt);
    ++message.attempts;
}

std::optional<Moment> Backlog::firstDue() const
{
    std::optional<Moment> first;
    for (std::size_t i = m_first; i < m_messages.size(); ++i) {
        const Message &message = m_messages[i];
        if (message.state == State::Waiting)
            first = std::min<Moment>(first.value_or(message.due), message.due);
        // Those behind one that was never tried were enqueued later still.
        if (message.attempts == 0 && message.state == State::Waiting)
            break;
    }
    return first;
}

} // namespace simulation
