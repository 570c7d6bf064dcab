#pragma once

#include "tests/powercut/laws.h"
#include "tests/powercut/recording.h"

#include <functional>
#include <set>

namespace powercut {

/// A power cut: how many records were made before it, and the luck of what was not synced.
struct Cut
{
    std::size_t record = 0;
    quint32 chance = 0;

    auto operator<=>(const Cut &) const = default;
};

/// That many cuts of a recording, in order, the same every time. Every second one is behind a
/// record that is no write: there something begins or ends, and writes are many.
/// @param recording has records of both kinds.
std::vector<Cut> cutsOf(const Recording &recording, std::size_t count, quint32 seed);
/// The cuts right behind what the subject said.
/// @param chances how many for each.
std::vector<Cut> cutsBehind(
    const Recording &recording, const std::set<QByteArray> &said, quint32 chances);

using Law = std::function<QStringList(const QString &folder, quint32 seed, const Story &story)>;

/// Replays the cuts one by one: builds what each leaves, and looks whether the law holds.
/// @param seed that the recording was made with.
/// @return what is wrong, each with its cut, the seed and what was done last. With POWERCUT_KEEP in
///         the environment also a folder that holds what the cut has left.
QStringList violations(
    const Recording &recording, const std::vector<Cut> &cuts, quint32 seed, const Law &law);

/// The same where the power goes a second time, while the till starts on what the first cut left.
/// @param again how many second cuts follow each of the first.
QStringList violationsOfTwo(const Recording &recording, const std::vector<Cut> &cuts,
    std::size_t again, quint32 seed, const Law &law);

} // namespace powercut
