#pragma once

#include <QString>
#include <QTemporaryDir>

namespace till::support {

/// An archive for support, unpacked as long as this lives, for this program's user only.
///
/// Local times in it are those of the till that wrote it: from the constructor on this process has
/// its time zone.
class UnpackedBundle
{
public:
    /// @throws StorageError when the file is no archive of `writeBundle`, or cannot be unpacked.
    explicit UnpackedBundle(const QString &fileName);

    /// Like a till's state folder.
    [[nodiscard]] QString stateFolder() const;
    /// The messages of the queue, as JSON; perhaps not there.
    [[nodiscard]] QString messagesFile() const;
    /// The name by which cards that the till makes up are known.
    [[nodiscard]] QString technicalCardName() const { return m_technicalCardName; }

private:
    void write(const QString &name, const QByteArray &contents) const;
    void takeOver(const QByteArray &versions);

    QTemporaryDir m_folder;
    QString m_technicalCardName;
};

} // namespace till::support
