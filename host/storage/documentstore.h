#pragma once

#include "host/documents/abstractdocument.h"
#include "host/export.h"
#include "host/storage/filelock.h"

#include <QSharedPointer>
#include <QString>
#include <QStringList>

/// The till's documents in the state folder of `Singleton<StateFolder>`.
///
/// Holds the folder's lock as long as it lives; a process makes one. What it throws is a
/// `StorageError`. No file that it cannot read is ever overwritten or removed.
class POSHOST_EXPORT DocumentStore
{
public:
    /// Makes the folders where they are missing and locks the state folder.
    /// @throws StorageError when the folder cannot be used, or another till has it open.
    DocumentStore();
    ~DocumentStore();
    Q_DISABLE_COPY_MOVE(DocumentStore)

    /// The open document; null when there is none. What a kill left half done is finished first: a
    /// document that is closed already (by its state, or because it is among the closed ones) is
    /// put there and not returned, so that it is not sold twice; a cancelled one is dropped.
    [[nodiscard]] QSharedPointer<AbstractDocument> loadOpen();
    /// Keeps the open document.
    void saveOpen(const QSharedPointer<AbstractDocument> &document);
    /// Puts a document among the closed ones and ends the open one. Can be called again after it
    /// has failed.
    /// @param document its state is `Closed`.
    /// @throws StorageError also when another document of this number has been closed before.
    void close(const QSharedPointer<AbstractDocument> &document);
    /// Drops the open document, which was cancelled. Its number is not given again.
    void discard();

    /// The closed document of that number; null when there is none.
    [[nodiscard]] QSharedPointer<AbstractDocument> loadClosed(const QString &number) const;
    /// Numbers of the closed documents in ascending order.
    [[nodiscard]] QStringList closedNumbers() const;

    /// Gives a number to a new document: one above the highest that was ever given here, whatever
    /// became of its document, but not below `firstCheque`. It is on disk when this returns.
    [[nodiscard]] QString nextNumber(int firstCheque);

private:
    [[nodiscard]] bool isClosedAlready(const AbstractDocument &document) const;
    [[nodiscard]] qint64 highestInUse() const;

    FileLock m_lock;
};
