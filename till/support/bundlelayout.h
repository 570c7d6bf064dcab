#pragma once

#include <QString>

/// Names of what is in an archive for support.
namespace till::support::layout {

inline const QString manifest = QStringLiteral("manifest.json");
inline const QString versions = QStringLiteral("versions.json");
inline const QString settings = QStringLiteral("settings/"); ///< a folder
inline const QString queueStatus = QStringLiteral("queue/status.json");
inline const QString messages = QStringLiteral("queue/messages.json");
inline const QString exchanges = QStringLiteral("exchanges.json");
inline const QString state = QStringLiteral("state/"); ///< a folder, like a till's state folder

} // namespace till::support::layout
