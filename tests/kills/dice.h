#pragma once

#include <QtGlobal>

#include <random>

namespace kills {

/// The luck of one day in the shop. Equal seeds and days, equal luck, whatever library it is built
/// with.
class Dice
{
public:
    Dice(quint32 seed, quint32 day);

    /// A number from 0, less than `count`, which is at least 1.
    [[nodiscard]] quint32 below(quint32 count);
    /// @param percent 0: never, 100: always.
    [[nodiscard]] bool falls(quint32 percent);
    /// One of them, as likely as the others; there is one at least.
    template <typename List> [[nodiscard]] const typename List::value_type &oneOf(const List &list)
    {
        return *(list.begin() + below(static_cast<quint32>(list.size())));
    }

private:
    std::mt19937 m_random;
};

} // namespace kills
