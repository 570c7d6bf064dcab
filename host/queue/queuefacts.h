#pragma once

#include <QString>

/// Names of what the queue's file remembers beside its messages, as texts; times as in its table.
namespace queuefacts {

inline const QString lastSuccess = QStringLiteral("last_success"); ///< time of a delivery
inline const QString lastError = QStringLiteral("last_error");
inline const QString lastErrorTime = QStringLiteral("last_error_time");
inline const QString heldUntil = QStringLiteral("held_until"); ///< see `MessageStore::heldUntil`
inline const QString stopsInRow = QStringLiteral("stops_in_row");

} // namespace queuefacts
