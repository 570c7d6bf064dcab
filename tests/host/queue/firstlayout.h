#pragma once

#include <QStringList>

/// The statements of the queue's first layout, as its program runs them to this day at tills that
/// were not upgraded.
namespace firstlayout {

inline const QStringList make{
    QStringLiteral("CREATE TABLE messages (number INTEGER PRIMARY KEY AUTOINCREMENT, "
                   "id TEXT NOT NULL UNIQUE, queue TEXT NOT NULL, remark TEXT NOT NULL, "
                   "url TEXT NOT NULL, headers TEXT NOT NULL, body BLOB NOT NULL, "
                   "correlation_id TEXT NOT NULL, enqueued TEXT NOT NULL, "
                   "attempts INTEGER NOT NULL, next_attempt TEXT NOT NULL, "
                   "last_error TEXT NOT NULL, state TEXT NOT NULL CHECK (state IN "
                   "('pending', 'sending', 'delivered', 'refused', 'parked')), "
                   "answer BLOB NOT NULL)"),
    QStringLiteral("CREATE INDEX messages_by_state ON messages (state, number)"),
    QStringLiteral("PRAGMA user_version = 1"),
};

inline const QString knownVersion = QStringLiteral("PRAGMA user_version");

/// Values: id, body, state.
inline const QString append = QStringLiteral(
    "INSERT INTO messages (id, queue, remark, url, headers, body, correlation_id, enqueued, "
    "attempts, next_attempt, last_error, state, answer) VALUES (?, 'loyalty', '', "
    "'http://service/', '{\"Authorization\":\"Basic c2VjcmV0\"}', ?, 'c-1', "
    "'2024-11-21T12:30:01.005Z', 0, '2024-11-21T12:30:01.005Z', '', ?, CAST('' AS BLOB))");

inline const QString waiting
    = QStringLiteral("SELECT count(*) FROM messages WHERE state IN ('pending', 'sending')");

inline const QString undelivered = QStringLiteral(
    "SELECT number, id, queue, remark, url, correlation_id, enqueued, attempts, next_attempt, "
    "last_error, state, answer FROM messages WHERE state <> 'delivered' ORDER BY number");

/// Values: number behind which to look.
inline const QString chooseNext = QStringLiteral(
    "SELECT number, id, queue, remark, url, correlation_id, enqueued, attempts, next_attempt, "
    "last_error, state, answer, headers, body FROM messages WHERE number > ? AND "
    "state IN ('pending', 'sending') ORDER BY number LIMIT 1");

/// Values: state, attempts, number.
inline const QString checkOut
    = QStringLiteral("UPDATE messages SET state = ?, attempts = ? WHERE number = ?");

/// Values: state, next attempt, last error, answer, number.
inline const QString settle
    = QStringLiteral("UPDATE messages SET state = ?, next_attempt = ?, last_error = ?, "
                     "answer = ? WHERE number = ?");

} // namespace firstlayout
