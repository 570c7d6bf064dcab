#pragma once

#include <QString>

#include <array>

namespace faults {

/// What becomes of an operation that a fault strikes.
enum class Outcome
{
    Done,
    AsksNothing,
    Offline,
    Queued,
    Refused,
    KeptOpen,
    Waits,
    Hollow,
    AsSaid,
    Unnumbered,
    Unbooked,
    Stops,
    Salvaged,
    LostWithFile,
    NoMeaning
};

inline constexpr std::array allOutcomes{Outcome::Done, Outcome::AsksNothing, Outcome::Offline,
    Outcome::Queued, Outcome::Refused, Outcome::KeptOpen, Outcome::Waits, Outcome::Hollow,
    Outcome::AsSaid, Outcome::Unnumbered, Outcome::Unbooked, Outcome::Stops, Outcome::Salvaged,
    Outcome::LostWithFile, Outcome::NoMeaning};

/// What stands in the table.
QString wordOf(Outcome outcome);
/// What the word means, a sentence for people in a shop.
QString meaningOf(Outcome outcome);

} // namespace faults
