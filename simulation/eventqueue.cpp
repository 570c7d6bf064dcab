#include "simulation/eventqueue.h"

#include <algorithm>

namespace simulation {

namespace {

/// Longer than the longest wait between two attempts, so that the heap is rarely needed.
constexpr Moment wheelSpan{1 << 20};
constexpr int nobody = -1;

} // namespace

EventQueue::EventQueue(int actors)
    : m_wheel(static_cast<std::size_t>(wheelSpan.count()), Slot{nobody, nobody})
    , m_followers(static_cast<std::size_t>(actors), nobody)
{ }

bool EventQueue::FarEvent::operator>(const FarEvent &other) const
{
    return at != other.at ? at > other.at : sequence > other.sequence;
}

EventQueue::Slot &EventQueue::slotOf(Moment at)
{
    return m_wheel[static_cast<std::size_t>(at % wheelSpan / Moment(1))];
}

bool EventQueue::isFar(Moment at) const
{
    return at >= m_now + wheelSpan;
}

void EventQueue::plan(int actor, Moment at)
{
    const Moment from = std::max(at, m_now);
    if (isFar(from))
        m_far.push({from, m_farPlanned++, actor});
    else
        append(actor, from);
}

void EventQueue::append(int actor, Moment at)
{
    Slot &slot = slotOf(at);
    if (slot.first == nobody)
        slot.first = actor;
    else
        m_followers[static_cast<std::size_t>(slot.last)] = actor;
    slot.last = actor;
    m_followers[static_cast<std::size_t>(actor)] = nobody;
    ++m_onWheel;
}

// What was planned for a moment while it was far comes onto the wheel before anything else can be
// planned for that moment, so the order of planning holds. An empty wheel turns in one go.
void EventQueue::turn()
{
    m_now = m_onWheel > 0 ? m_now + Moment(1) : m_far.top().at;
    while (!m_far.empty() && !isFar(m_far.top().at)) {
        append(m_far.top().actor, m_far.top().at);
        m_far.pop();
    }
}

Event EventQueue::takeFirst(Slot &slot)
{
    const int actor = slot.first;
    slot.first = m_followers[static_cast<std::size_t>(actor)];
    --m_onWheel;
    return {m_now, actor};
}

std::optional<Event> EventQueue::next()
{
    while (m_onWheel > 0 || !m_far.empty()) {
        if (Slot &slot = slotOf(m_now); slot.first != nobody)
            return takeFirst(slot);
        turn();
    }
    return {};
}

} // namespace simulation
