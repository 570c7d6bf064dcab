#pragma once

#include "till/explain/evidence.h"

namespace till::explain {

/// The till's log and those of its deliverers, whatever is left of them.
class Logs
{
public:
    /// @param folder of the log; reads it at once. Files that cannot be read count as empty.
    explicit Logs(const QString &folder);

    /// Warnings and errors between two moments, both included, and the lines that name one of the
    /// ids, in the order of time.
    [[nodiscard]] QList<LogLine> concerning(
        const QDateTime &from, const QDateTime &to, const QStringList &ids) const;

private:
    QList<LogLine> m_lines; ///< warnings, errors and what is about a message
};

} // namespace till::explain
