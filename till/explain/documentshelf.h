#pragma once

#include "host/documents/abstractdocument.h"
#include "host/framework/tr.h"

#include <QSharedPointer>
#include <QStringList>

namespace till::explain {

/// The documents of a state folder, read beside the till that writes them: a file is replaced in
/// one step, so each look finds a whole one.
class DocumentShelf
{
public:
    explicit DocumentShelf(QString stateFolder);

    /// Documents of that number: the closed one, the open one.
    [[nodiscard]] QList<QSharedPointer<AbstractDocument>> numbered(const QString &number);
    /// Documents with that loyalty card, the open one first, then the closed ones, newest first.
    /// @param count at most so many.
    [[nodiscard]] QList<QSharedPointer<AbstractDocument>> ofCard(const QString &card, int count);
    /// Closed returns of the sale of that number, oldest first.
    [[nodiscard]] QList<QSharedPointer<AbstractDocument>> returnsOf(const AbstractDocument &sale);
    /// The documents with those correlation ids.
    /// @param number of each, in the same order.
    [[nodiscard]] QSharedPointer<AbstractDocument> identified(
        const QString &correlationId, const QString &number);

    /// What could not be read, one for each file.
    [[nodiscard]] QList<tr::Tr> problems() const { return m_problems; }
    [[nodiscard]] QString closedFolder() const;
    [[nodiscard]] QString openFile() const;

private:
    /// The document of the file; null where there is none, it cannot be read, or the text does not
    /// stand in it.
    [[nodiscard]] QSharedPointer<AbstractDocument> read(
        const QString &fileName, const QByteArray &text = {});
    [[nodiscard]] QStringList newestClosed() const;

    QString m_stateFolder;
    QList<tr::Tr> m_problems;
};

} // namespace till::explain
