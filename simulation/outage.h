#pragma once

#include "simulation/chance.h"
#include "simulation/deliverer.h"
#include "simulation/eventqueue.h"
#include "simulation/measures.h"
#include "simulation/scenario.h"

#include <functional>

namespace simulation {

/// An outage that begins at moment 0, and how the tills deliver after it: virtual time, one event
/// after the other, the same numbers for the same arguments.
class Outage
{
public:
    /// Called when a till sends a request to the service, and when it has its answer or gives up.
    using Watcher = std::function<void(int till, Moment at, bool sends)>;

    /// @param policy   must outlive this object.
    /// @param backlogs of the scenario's tills.
    Outage(const Scenario &scenario, const Policy &policy, std::vector<Backlog> backlogs,
        Watcher watcher = {});
    Outage(const Outage &) = delete;
    Outage &operator=(const Outage &) = delete;

    /// Lets it happen, until every backlog is empty or it is time to give up; to be called once.
    void run();

    [[nodiscard]] const Measures &measures() const { return m_measures; }

private:
    /// One of a till's requests at once. Its event is the moment at which its request reaches the
    /// service, or at which the answer to that is there.
    struct Sender
    {
        int till;
        Deliverer deliverer;
        bool waitsForAnswer = false;
        bool willSucceed = false; ///< of the answer that it waits for
    };

    void addSenders();
    [[nodiscard]] Moment firstAttempt(Moment firstMessage);
    [[nodiscard]] Moment overhead();
    [[nodiscard]] Backlog &backlogOf(const Sender &sender);
    void passOutage(int till);
    [[nodiscard]] bool isOver(Moment now) const;

    // Each says when the sender acts next; nothing: never again.
    [[nodiscard]] std::optional<Moment> act(Sender &sender, Moment now);
    [[nodiscard]] std::optional<Moment> attempt(Sender &sender, Moment now);
    [[nodiscard]] std::optional<Moment> send(Sender &sender, Moment now);
    [[nodiscard]] std::optional<Moment> settle(Sender &sender, Moment now, bool delivered);
    [[nodiscard]] std::optional<Moment> rest(Sender &sender, Moment now);

    void noteDelivery(const Sender &sender, Moment now);
    void watch(const Sender &sender, Moment now, bool sends) const;

    Scenario m_scenario;
    const Policy *m_policy;
    Watcher m_watcher;
    Chance m_chance;
    std::vector<Backlog> m_backlogs;
    std::vector<Sender> m_senders;
    EventQueue m_events;
    Service m_service;
    Measures m_measures;
};

} // namespace simulation
