#pragma once

#include <QHash>
#include <QString>

/// The pages that stand in a write-ahead log of the database: where each one's newest committed
/// copy begins.
struct WriteAheadLog
{
    /// Reads the log up to its last whole commit, as the database itself would after a power cut.
    /// A log that is missing or damaged from its head on has no pages.
    [[nodiscard]] static WriteAheadLog read(const QString &fileName);

    quint32 pageSize = 0; ///< bytes; 0 when it has no pages
    QHash<quint32, qint64> offsets; ///< of the copies, by page number from 1
};
