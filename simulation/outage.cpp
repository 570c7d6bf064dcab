#include "simulation/outage.h"

#include <algorithm>
#include <utility>

namespace simulation {

Outage::Outage(
    const Scenario &scenario, const Policy &policy, std::vector<Backlog> backlogs, Watcher watcher)
    : m_scenario(scenario)
    , m_policy(&policy)
    , m_watcher(std::move(watcher))
    , m_chance(scenario.seed)
    , m_backlogs(std::move(backlogs))
    , m_events(scenario.tills * policy.requestsAtOnce)
    , m_service(scenario.service)
    , m_measures(m_backlogs, scenario.outage)
{
    addSenders();
}

void Outage::addSenders()
{
    for (int till = 0; till < m_scenario.tills; ++till)
        for (int i = 0; i < m_policy->requestsAtOnce; ++i)
            m_senders.push_back({till, {m_backlogs[static_cast<std::size_t>(till)], *m_policy}});
}

Backlog &Outage::backlogOf(const Sender &sender)
{
    return m_backlogs[static_cast<std::size_t>(sender.till)];
}

void Outage::run()
{
    for (int till = 0; till < m_scenario.tills; ++till)
        passOutage(till);
    for (auto event = m_events.next(); event && !isOver(event->at); event = m_events.next())
        if (const auto next = act(m_senders[static_cast<std::size_t>(event->actor)], event->at))
            m_events.plan(event->actor, *next);
}

bool Outage::isOver(Moment now) const
{
    return now >= m_scenario.outage + m_scenario.giveUp
        || m_measures.requests() >= m_scenario.mostRequests;
}

// Until the service is back the tills have nothing to do with each other. So each one lives through
// the outage by itself, which is much faster than all of them in step.
void Outage::passOutage(int till)
{
    const auto first = m_backlogs[static_cast<std::size_t>(till)].firstDue();
    if (!first)
        return;
    const int atOnce = m_policy->requestsAtOnce;
    std::vector<std::optional<Moment>> next(static_cast<std::size_t>(atOnce));
    for (auto &moment : next)
        moment = firstAttempt(*first);
    const auto soonest = [&next] {
        return std::min_element(next.begin(), next.end(), [](const auto &left, const auto &right) {
            return left.value_or(Moment::max()) < right.value_or(Moment::max());
        });
    };
    const int firstSender = till * atOnce;
    for (auto turn = soonest(); *turn && **turn < m_scenario.outage; turn = soonest())
        *turn
            = act(m_senders[static_cast<std::size_t>(firstSender + (turn - next.begin()))], **turn);
    for (int i = 0; i < atOnce; ++i)
        if (next[static_cast<std::size_t>(i)])
            m_events.plan(firstSender + i, *next[static_cast<std::size_t>(i)]);
}

// Where nothing waits only the moments before the return matter: what came before is left out, and
// the tills are anywhere in an exchange.
Moment Outage::firstAttempt(Moment firstMessage)
{
    const Moment matters = m_policy->forgets ? m_scenario.overhead : m_scenario.outage;
    const Moment lasts = std::min(m_scenario.together.value_or(m_scenario.outage), matters);
    return std::max(firstMessage, m_scenario.outage - lasts) + overhead();
}

// Never the same twice: with exact times a till that was served once would come back exactly when
// its place in the queue is free again, and the others never would.
Moment Outage::overhead()
{
    constexpr double least = 0.5;
    return std::chrono::ceil<Moment>(m_scenario.overhead * (least + m_chance.next()));
}

std::optional<Moment> Outage::act(Sender &sender, Moment now)
{
    if (!std::exchange(sender.waitsForAnswer, false))
        return attempt(sender, now);
    watch(sender, now, false);
    return settle(sender, now, sender.willSucceed);
}

std::optional<Moment> Outage::attempt(Sender &sender, Moment now)
{
    if (!sender.deliverer.take(now))
        return rest(sender, now);
    if (now < m_scenario.outage)
        return settle(sender, now, false);
    return send(sender, now);
}

std::optional<Moment> Outage::send(Sender &sender, Moment now)
{
    watch(sender, now, true);
    const auto answered = m_service.accept(now);
    m_measures.noteRequest(now, !answered);
    if (!answered) {
        watch(sender, now, false);
        return settle(sender, now, false);
    }
    const Moment patience = now + m_scenario.limit;
    sender.waitsForAnswer = true;
    sender.willSucceed = *answered <= patience;
    return std::min(*answered, patience);
}

std::optional<Moment> Outage::settle(Sender &sender, Moment now, bool delivered)
{
    if (delivered) {
        sender.deliverer.succeed();
        noteDelivery(sender, now);
    } else {
        const double messageChance = m_chance.next();
        sender.deliverer.fail(now, messageChance, m_chance.next());
    }
    return sender.deliverer.isStopped() ? rest(sender, now) : now + overhead();
}

std::optional<Moment> Outage::rest(Sender &sender, Moment now)
{
    const auto next = sender.deliverer.endPass();
    return next ? std::optional(std::max(*next, now) + overhead()) : std::nullopt;
}

void Outage::noteDelivery(const Sender &sender, Moment now)
{
    m_measures.noteDelivery(sender.till, now, backlogOf(sender).undelivered() == 0);
}

void Outage::watch(const Sender &sender, Moment now, bool sends) const
{
    if (m_watcher)
        m_watcher(sender.till, now, sends);
}

} // namespace simulation
