#pragma once

#include "host/queue/salvage/writeaheadlog.h"

#include <QByteArray>
#include <QFile>

/// The pages of a database file, damaged or not, as they are with its write-ahead log.
class DatabaseImage
{
public:
    /// Opens "<file>" and "<file>-wal"; either may be missing.
    explicit DatabaseImage(const QString &fileName);

    /// Bytes of a page. Where the file no longer says so: the database's default.
    [[nodiscard]] quint32 pageSize() const { return m_pageSize; }
    /// The highest page number; pages are numbered from 1.
    [[nodiscard]] quint32 pageCount() const { return m_pageCount; }
    /// The bytes of a page; empty for one that is not there whole.
    [[nodiscard]] QByteArray page(quint32 number);

private:
    QFile m_file;
    QFile m_log;
    WriteAheadLog m_logged;
    quint32 m_pageSize;
    quint32 m_pageCount;
};
