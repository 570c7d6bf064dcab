#pragma once

#include "tests/powercut/record.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace powercut {

/// What the subject has said up to a moment, and what it was doing then.
struct Story
{
    /// Each is a word and what belongs to it: {"saved", "17", "3"}.
    std::vector<QStringList> said;
    /// What it said next: the operation that had begun and not returned. Nothing at the end.
    std::optional<QStringList> next;
};

/// The story at the moment when that many records were made.
Story storyAt(const std::vector<Record> &records, std::size_t count);

/// Says in the recording of this process that an operation has returned. Any thread.
/// @throws std::runtime_error when nobody records this process.
void mark(const QString &text);

} // namespace powercut
