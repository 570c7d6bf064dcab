#pragma once

#include "host/queue/messagestore.h"

#include <QSqlDatabase>
#include <QString>

#include <memory>

/// Where the queues of the tests are. The same cases are linked with a file and with a server.
namespace queueengine {

/// Sees to an empty queue for the test that begins.
void begin();
/// The value of "Queue:database" for it; empty: none.
QString setting();
/// A connection of its own to it, as another process would have one.
QSqlDatabase connect(const QString &connectionName);
/// A store of its own on it, as another deliverer would have one.
std::unique_ptr<MessageStore> openStore();
/// Lets the leases of deliverers that are no more end, where that takes time, and what they asked
/// for last come to its end.
/// @param process whose deliverers they were; 0: all of them.
void endLeases(qint64 process = 0);

} // namespace queueengine
