#pragma once

#include "emulator/recording/recordedexchange.h"

#include <QStringList>

#include <vector>

namespace emulator {

struct Recording
{
    std::vector<RecordedExchange> exchanges; ///< in the order of their numbers
    QStringList warnings; ///< a line for each exchange that was passed over
};

/// Reads a folder that a recorder has written. What the recorder could not finish, messages without
/// their JSON file, is passed over with a warning. Throws RecordingError for a folder without
/// exchanges, a broken JSON file, and a message that is missing.
Recording readRecording(const QString &path);

} // namespace emulator
