#include "host/queue/dbqueuebroker.h"

template class Singleton<DBQueueBroker>;

DBQueueBroker::~DBQueueBroker() = default;

void DBQueueBroker::enqueue(const QString &, const QMap<QString, QVariant> &, const QString &) { }
