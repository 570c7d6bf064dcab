#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace till {

/// Lines typed at a terminal, with editing, completion and a history that is kept in a file.
///
/// The editing library has one state in the process, so there is one of these at a time.
class LineEditor
{
public:
    /// @param historyFile made where it is missing, readable by its owner only.
    /// @param articles    codes of the catalogue, for completion.
    LineEditor(QString historyFile, const QStringList &articles);
    /// Writes the history.
    ~LineEditor();
    Q_DISABLE_COPY_MOVE(LineEditor)

    /// Waits for a line; nothing at the end of the input.
    [[nodiscard]] std::optional<QString> read(const QString &prompt);
    /// Puts a line into the history.
    void remember(const QString &line);

private:
    QString m_historyFile;
};

} // namespace till
