#pragma once

#include "host/export.h"
#include "host/framework/singleton.h"

#include <QString>

/// Where the till keeps what must survive it. `Singleton<StateFolder>::instance()`.
///
/// Nothing is created by asking for a path. Without `setPath` it is ".korvel" below the user's
/// home.
class POSHOST_EXPORT StateFolder
{
public:
    void setPath(const QString &path) { m_path = path; }
    /// Whether a path was set; without one nothing is journalled.
    [[nodiscard]] bool isSet() const { return !m_path.isEmpty(); }
    [[nodiscard]] QString path() const;
    [[nodiscard]] QString openDocument() const { return path() + QStringLiteral("/document.json"); }
    [[nodiscard]] QString closedDocuments() const { return path() + QStringLiteral("/closed"); }
    /// Highest number that was given to a document.
    [[nodiscard]] QString numbers() const { return path() + QStringLiteral("/numbers.json"); }
    /// Locked by the till that has the folder open.
    [[nodiscard]] QString lock() const { return path() + QStringLiteral("/lock"); }
    [[nodiscard]] QString queue() const { return path() + QStringLiteral("/queue"); }
    [[nodiscard]] QString journal() const { return path() + QStringLiteral("/journal.jsonl"); }
    [[nodiscard]] QString receipts() const { return path() + QStringLiteral("/receipts"); }
    [[nodiscard]] QString log() const { return path() + QStringLiteral("/log"); }

private:
    QString m_path;
};

extern template class POSHOST_EXPORT Singleton<StateFolder>;
