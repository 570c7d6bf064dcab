#pragma once

#include <QtGlobal>

#include <random>

namespace powercut {

/// What becomes of something that was not synced when the power went.
enum class Fate
{
    Kept,
    Lost,
    Torn ///< some of its sectors reached the disk
};

/// The luck of one power cut: what of the unsynced reached the disk. Equal seeds, equal luck.
///
/// A third of all cuts lose everything, a third nothing, since a disk that writes at once and one
/// that writes late are both common; the others decide on each thing.
class Chance
{
public:
    explicit Chance(quint32 seed);

    [[nodiscard]] Fate ofWrite();
    /// Whether a change reached the disk that happens as a whole or not at all.
    [[nodiscard]] bool ofChange();
    /// Whether one sector of a torn write did.
    [[nodiscard]] bool ofSector();
    /// How many of so many changes in a row did; none behind the first that did not.
    [[nodiscard]] std::size_t ofRow(std::size_t changes);

private:
    enum class Temper
    {
        Nothing,
        Everything,
        Mixed,
        Count
    };

    [[nodiscard]] quint32 below(quint32 count);

    std::mt19937 m_random;
    Temper m_temper;
};

} // namespace powercut
