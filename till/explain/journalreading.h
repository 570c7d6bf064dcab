#pragma once

#include "till/explain/evidence.h"

#include <QByteArrayList>

namespace till::explain {

/// What was read of a journal.
struct JournalExtract
{
    QList<JournalLine> lines; ///< in their order
    int torn = 0; ///< lines that are no journal lines, the last one not counted
    bool endsTorn = false; ///< the last line is not whole
};

/// Reads the lines in which one of the texts stands, beside who writes the journal. One that is not
/// there has no lines.
/// @param wanted whole words as they stand in JSON strings, without quotation marks.
/// @throws StorageError when the journal is there and cannot be read.
[[nodiscard]] JournalExtract readJournal(const QString &fileName, const QByteArrayList &wanted);

} // namespace till::explain
