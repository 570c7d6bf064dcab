#pragma once

#include "simulation/moment.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace simulation {

/// The messages of one till in the order of enqueueing, those included that are still to come. They
/// are tried in this order: none behind one that waits for its first attempt was tried before.
class Backlog
{
public:
    /// Adds a message behind the others, enqueued not before them and within `longestSpan`.
    void append(Moment enqueued);

    /// Takes the first message from `position` on that may be sent.
    /// @returns its position; nothing when there is none.
    [[nodiscard]] std::optional<std::size_t> take(Moment now, std::size_t position);
    /// How often a message was sent without success.
    [[nodiscard]] int attempts(std::size_t position) const;
    void noteDelivered(std::size_t position);
    /// Puts a message back that was taken.
    void noteFailure(std::size_t position, Moment nextAttempt);

    /// When the first of the messages that nobody has taken may be sent; nothing when there is
    /// none.
    [[nodiscard]] std::optional<Moment> firstDue() const;
    [[nodiscard]] std::size_t undelivered() const { return m_undelivered; }

    /// Moments go up to here.
    static constexpr Moment longestSpan{std::numeric_limits<std::int32_t>::max()};

private:
    using CompactMoment = std::chrono::duration<std::int32_t, std::milli>;
    enum class State : std::uint8_t
    {
        Waiting,
        Taken,
        Delivered,
    };
    /// Packed, since a pass goes through all of a backlog, and there are millions of messages.
    struct Message
    {
        CompactMoment due{};
        std::uint32_t attempts : 30 = 0;
        State state : 2 = State::Waiting;
    };

    [[nodiscard]] static bool isStillToCome(const Message &message, Moment now);

    std::vector<Message> m_messages;
    std::size_t m_first = 0; ///< everything before it is delivered
    std::size_t m_undelivered = 0;
};

} // namespace simulation
