#pragma once

#include "host/export.h"
#include "host/queue/queuemessage.h"

#include <QList>

#include <functional>

/// Messages that the queue's file could not take, in a file of lines beside it until it can.
///
/// Each line is a JSON object with a message and its checksum. Several processes may use it: each
/// holds the file's lock while it does. The file is private and stays, empty, when all was taken
/// over: one that was removed could be written by who had it open still.
class POSHOST_EXPORT SpillFile
{
public:
    explicit SpillFile(QString fileName);

    /// Whether there is anything to take over.
    [[nodiscard]] bool isEmpty() const;
    /// Adds a message; it is on disk, synced, when this returns.
    /// @throws StorageError when it could not be; the file is then as it was.
    void append(const QueueMessage &message);
    /// The messages in their order, which stay. Waits for nobody: of who works the file just now it
    /// sees what is written so far.
    /// @throws StorageError when it cannot be read.
    [[nodiscard]] QList<QueueMessage> messages() const;
    /// Hands all messages over in their order, then empties the file. Lines that are no whole
    /// message, as a killed process leaves the last one, go to "<file>.unreadable".
    /// @param take puts them where they belong; throws when it cannot, and the file stays as it is.
    ///             May be given a message again that it was given before.
    /// @return how many lines were unreadable.
    /// @throws StorageError also when the file cannot be read or emptied.
    int takeOver(const std::function<void(const QList<QueueMessage> &)> &take);

private:
    QString m_fileName;
};
