#include "host/queue/server/queueserver.h"

#include "host/queue/server/serverlayout.h"

QueueServer::QueueServer(const ServerAddress &address)
    : m_database(address)
{
    serverlayout::bringUp(m_database);
}
