#pragma once

#include "host/framework/tr.h"
#include "host/queue/queuehome.h"
#include "host/storage/filelock.h"

#include <memory>

/// The queue's file from being opened to being closed.
///
/// Opening makes a missing file whole, checks one that is there, and sets a damaged one aside with
/// its write-ahead log, never overwriting anything; what can be read of it goes into the new one.
/// As long as this object lives it holds a share of "<file>.open", and a file is made or set aside
/// only by who has that lock alone: nobody's messages go into a file that was moved away.
/// Readable by its owner only from the first moment, since the messages hold credentials.
class POSHOST_EXPORT QueueFile : public QueueHome
{
public:
    /// @param knownDamage what was found wrong while the file was used, for people: it is set aside
    ///        then, whatever the look at it says. Empty: nothing.
    /// @throws StorageError when the file cannot be opened, or stays in another process's opening
    ///         for two seconds; `QueueDamaged` when it is damaged and others have it open.
    explicit QueueFile(const QString &fileName, const tr::Tr &knownDamage = {});
    ~QueueFile() override;
    Q_DISABLE_COPY_MOVE(QueueFile)

    [[nodiscard]] QueueDatabase &database() override { return *m_database; }
    [[nodiscard]] QList<tr::Tr> notices() const override { return m_notices; }
    /// The program of before takes this lock alone and knows of no leases.
    [[nodiscard]] QString deliveryLock() const override;

private:
    void openAlone(const tr::Tr &knownDamage);
    void setAside(const tr::Tr &damage);
    void salvageWhatWasSetAside();
    void note(const tr::Tr &notice);

    QString m_fileName;
    FileLock m_presence;
    std::unique_ptr<QueueDatabase> m_database;
    QList<tr::Tr> m_notices;
};
