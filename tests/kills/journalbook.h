#pragma once

#include <QSet>
#include <QString>

namespace kills {

/// What a till's journal says about its documents, each named by its number.
struct JournalBook
{
    QSet<QString> mentioned;
    QSet<QString> closed;
    QSet<QString> cancelled;
};

/// Reads a journal; an empty book when there is none. Lines that are no JSON are passed over.
JournalBook journalBook(const QString &stateFolder);

} // namespace kills
