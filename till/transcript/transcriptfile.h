#pragma once

#include "till/transcript/json.h"

#include <QFile>
#include <QString>

namespace till {

/// The file that the transcript is written to.
class TranscriptFile
{
public:
    /// @param fileName "-": standard output. An existing file is emptied and keeps its rights; a
    /// new one, which will hold card numbers and customers' codes, is the owner's alone.
    /// @throws CannotDo when it cannot be written.
    explicit TranscriptFile(const QString &fileName);

    /// Writes one line and hands it to the system at once.
    /// @throws StorageError when it cannot be written.
    void write(const Json &object);

    /// Whether that name means standard output.
    [[nodiscard]] static bool isStandardOutput(const QString &fileName);

private:
    QString m_name; ///< for messages
    QFile m_file;
};

} // namespace till
