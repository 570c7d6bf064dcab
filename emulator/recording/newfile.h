#pragma once

#include <QByteArray>
#include <QString>

namespace emulator {

/// Writes a file that is not there yet, readable for its owner only: under a name with ".part" at
/// its end, to the disk, then under its own. Throws RecordingError, and leaves nothing then.
void writeNewFile(const QString &path, const QByteArray &bytes);

/// Takes care that the names in the folder outlive a power cut. Throws RecordingError.
void syncFolder(const QString &path);

} // namespace emulator
