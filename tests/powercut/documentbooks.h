#pragma once

#include <QString>
#include <QStringList>

#include <map>

namespace powercut {

/// A till's documents as the subject's words tell them.
struct DocumentBooks
{
    qint64 highestNumber = 0; ///< that was given
    QString open; ///< "17/3": number and version; empty without one
    std::map<qint64, QString> closed; ///< by number

    /// Takes note of an operation that returned.
    void note(const QStringList &words);
    /// "open 17/3, closed 15/2 16/4"; the highest number is no part of it.
    [[nodiscard]] QString described() const;
};

} // namespace powercut
