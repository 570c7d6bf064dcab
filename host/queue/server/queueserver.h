#pragma once

#include "host/queue/queuehome.h"
#include "host/queue/server/serveraddress.h"

/// A shared queue in a PostgreSQL database, from being reached to being left.
class POSHOST_EXPORT QueueServer : public QueueHome
{
public:
    /// Connects, and makes the tables where they are missing, until then at most.
    /// @throws QueueUnreached when that is not to be had, or the tables are a newer version's.
    explicit QueueServer(const ServerAddress &address,
        std::chrono::steady_clock::time_point deadline = QueueDatabase::soon());

    [[nodiscard]] QueueDatabase &database() override { return m_database; }
    [[nodiscard]] QList<tr::Tr> notices() const override { return {}; }
    [[nodiscard]] QString deliveryLock() const override { return {}; }

private:
    QueueDatabase m_database;
};
