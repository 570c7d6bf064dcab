#pragma once

#include "host/queue/queuedatabase.h"
#include "host/queue/queuemessage.h"

#include <QSqlQuery>
#include <QStringList>

/// Putting messages into their table and reading them from it.
namespace messagetable {

/// Adds a message behind the others.
/// @return false when one of that id is there already; nothing has changed then.
bool insert(QueueDatabase &database, const QueueMessage &message);

/// "SELECT <columns> FROM messages ".
[[nodiscard]] QString select(const QStringList &columns);
/// The message of the row that the query stands at; what was not selected keeps its default.
[[nodiscard]] QueueMessage messageFrom(const QSqlQuery &row);

} // namespace messagetable
