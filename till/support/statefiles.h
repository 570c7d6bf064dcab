#pragma once

#include "till/support/contents.h"
#include "till/support/secrets.h"

#include <functional>

namespace till::support {

/// Puts what a state folder holds into an archive, newest first, without secrets. Not taken: the
/// queue's files, which hold credentials, receipts, and what was typed at the prompt.
class StateFiles
{
public:
    /// @param secrets must outlive this.
    /// @param contents likewise.
    StateFiles(QString stateFolder, const Secrets &secrets, Contents &contents);

    void add();

    /// The open document's file; empty when there is none.
    [[nodiscard]] static QByteArray openDocument(const QString &stateFolder);

private:
    void addJournal();
    void addOpenDocument();
    void addLogs();
    void addClosedDocuments();
    [[nodiscard]] QByteArray read(const QString &fileName);
    /// Only the end of a file that is longer than there is room for, from a line's beginning; what
    /// stands before it is noted as left out.
    [[nodiscard]] QByteArray readEnd(const QString &fileName);
    [[nodiscard]] QString nameOf(const QString &fileName) const;

    QString m_stateFolder;
    const Secrets &m_secrets;
    Contents &m_contents;
};

} // namespace till::support
