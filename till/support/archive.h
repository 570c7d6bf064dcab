#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

/// Archives of the kind .tar.gz.
namespace till::support::archive {

struct Entry
{
    QString name; ///< a relative path with "/"
    QByteArray contents;
};

/// The archive of these files, readable by their owner only.
/// @throws StorageError when it cannot be made.
[[nodiscard]] QByteArray packed(const QList<Entry> &entries, const QDateTime &time);

/// The files of an archive, whatever else there is left out.
/// @param mostBytes of all files together: what unpacks to more is no archive of ours.
/// @throws StorageError when the file cannot be read, is no archive, is not whole, too large, or
///         has a name that leads out of the archive.
[[nodiscard]] QList<Entry> unpacked(const QString &fileName, qint64 mostBytes);

} // namespace till::support::archive
