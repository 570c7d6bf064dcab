#include "host/queue/server/queueserver.h"

#include "host/queue/server/serverlayout.h"

QueueServer::QueueServer(
    const ServerAddress &address, std::chrono::steady_clock::time_point deadline)
    : m_database(address, deadline)
{
    const QueueDeadline bounded(m_database, deadline);
    serverlayout::bringUp(m_database);
}
