#pragma once

#include "host/framework/tr.h"
#include "host/queue/queuedatabase.h"

#include <QList>

/// Where a queue's messages are, from being opened to being closed.
class POSHOST_EXPORT QueueHome
{
public:
    QueueHome() = default;
    virtual ~QueueHome();
    Q_DISABLE_COPY_MOVE(QueueHome)

    [[nodiscard]] virtual QueueDatabase &database() = 0;
    /// What a person must hear of what the opening found.
    [[nodiscard]] virtual QList<tr::Tr> notices() const = 0;
    /// The file of which every deliverer holds a share of a lock; empty: none is needed.
    [[nodiscard]] virtual QString deliveryLock() const = 0;
};
