#pragma once

#include <QString>
#include <QStringList>

namespace till::support {

/// Bytes of an archive's files together, before packing.
inline constexpr qint64 usualMostBytes = qint64{32} * 1024 * 1024;

/// What an archive for support is to be made of.
struct BundleRequest
{
    QString configFile; ///< empty: till.ini of the current folder, if there is one
    QString stateFolder; ///< empty: as the settings have it
    QString pluginFile;
    QString programVersion;
    QString file; ///< the archive
    qint64 mostBytes = usualMostBytes;
};

/// Writes one archive (.tar.gz) that tells who looks after tills from afar what this one is and
/// what it has done: versions, settings, journal, documents, queue and log, without passwords,
/// credentials and verification codes. Beside a running till, of which nothing is changed.
///
/// What cannot be read is left out and noted in the archive: just then it is needed. The archive is
/// readable by its owner only and comes whole under its name.
/// @return what is missing since it could not be read, in the language of the interface.
/// @throws CannotDo when there is a file of that name already.
/// @throws StorageError when the archive cannot be written; nothing is then left of it.
QStringList writeBundle(const BundleRequest &request);

} // namespace till::support
