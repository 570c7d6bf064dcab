#pragma once

#include "till/support/archive.h"
#include "till/transcript/json.h"

#include <QStringList>

namespace till::support {

/// What goes into an archive, within a limit: what is offered first is taken first.
class Contents
{
public:
    /// @param mostBytes of all files together, before packing.
    explicit Contents(qint64 mostBytes);

    /// Takes a file when there is room for all of it; otherwise it is noted as left out.
    /// @return whether it was taken.
    bool add(const QString &name, const QByteArray &contents);
    /// Takes the end of a file of lines, as many whole ones as a share of the limit has room for;
    /// what is cut off is noted.
    void addEnd(const QString &name, const QByteArray &lines);
    /// Bytes that one file of lines gets at most.
    [[nodiscard]] qint64 mostOfOneFile() const;
    /// Notes what is not in the archive for whatever reason.
    void noteLeftOut(const QString &name, qint64 bytes, const QString &reason);
    void noteProblem(const QString &problem);

    [[nodiscard]] const QList<archive::Entry> &entries() const { return m_entries; }
    [[nodiscard]] bool hasProblems() const { return !m_problems.isEmpty(); }
    [[nodiscard]] QStringList problems() const { return m_problems; }
    /// The list of what is there, what is not, and what went wrong.
    [[nodiscard]] Json manifest() const;

private:
    [[nodiscard]] qint64 room() const { return m_mostBytes - m_bytes; }

    qint64 m_mostBytes;
    qint64 m_bytes = 0;
    QList<archive::Entry> m_entries;
    Json m_leftOut = Json::array();
    QStringList m_problems;
};

} // namespace till::support
