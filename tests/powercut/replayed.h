#pragma once

#include "tests/powercut/disk.h"
#include "tests/powercut/recording.h"

#include <algorithm>

namespace powercut {

/// The folder that a recording leads to: the one that is there, unless something escaped it.
inline Tree replayed(const Recording &recording)
{
    Disk disk(recording.before);
    for (const Record &one : recording.records)
        disk.apply(one);
    return disk.present();
}

inline int countOf(const Recording &recording, Record::Kind kind)
{
    return static_cast<int>(std::count_if(recording.records.cbegin(), recording.records.cend(),
        [kind](const Record &one) { return one.kind == kind; }));
}

} // namespace powercut
