#pragma once

#include "emulator/recording/recordedexchange.h"

#include <memory>

namespace emulator {

/// The folder that a recorder writes to, one recorder at a time. What is in it is never changed.
class RecordingFolder
{
public:
    /// Makes the folder, for its owner only, when it is missing. Throws RecordingError when it
    /// cannot be used, or another recorder has it.
    explicit RecordingFolder(const QString &path);
    ~RecordingFolder();

    /// The next number that no file of the folder has. One thread.
    qint64 takeNumber() { return ++m_lastNumber; }

    /// Writes the exchange's files, the JSON file last: with it the exchange is there, whole. Any
    /// thread. Throws RecordingError, and leaves none of them then.
    void write(const RecordedExchange &exchange) const;

private:
    class Lock;

    const QString m_path;
    std::unique_ptr<Lock> m_lock;
    qint64 m_lastNumber = 0;
};

} // namespace emulator
