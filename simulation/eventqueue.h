#pragma once

#include "simulation/moment.h"

#include <queue>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace simulation {

/// Who acts when.
struct Event
{
    Moment at{};
    int actor = 0;
};

/// What happens next in virtual time: events in the order of their moments, those of one moment in
/// the order in which they were planned. Every actor has one planned event at most.
///
/// A wheel with one list for each of the next milliseconds, so that planning and taking cost the
/// same however many actors there are; what lies behind the wheel's end waits in a heap.
class EventQueue
{
public:
    /// @param actors they are numbered 0 to `actors` - 1.
    explicit EventQueue(int actors);

    /// Plans the next event of an actor that has none. A moment that has passed counts as the
    /// present one.
    void plan(int actor, Moment at);
    /// Takes the next event, whose moment becomes the present. Nothing when none is planned.
    [[nodiscard]] std::optional<Event> next();

private:
    /// The events of one moment: a list through `m_followers`.
    struct Slot
    {
        int first;
        int last;
    };
    struct FarEvent
    {
        Moment at{};
        std::int64_t sequence = 0;
        int actor = 0;
        [[nodiscard]] bool operator>(const FarEvent &other) const;
    };

    [[nodiscard]] Slot &slotOf(Moment at);
    [[nodiscard]] bool isFar(Moment at) const;
    void append(int actor, Moment at);
    void turn();
    [[nodiscard]] Event takeFirst(Slot &slot);

    std::vector<Slot> m_wheel;
    std::vector<int> m_followers; ///< by actor: who comes next in the same moment
    std::priority_queue<FarEvent, std::vector<FarEvent>, std::greater<>> m_far;
    std::int64_t m_farPlanned = 0;
    int m_onWheel = 0;
    Moment m_now{};
};

} // namespace simulation
