#pragma once

#include "host/export.h"
#include "host/framework/singleton.h"

#include <QMap>
#include <QString>
#include <QVariant>

/// The till's outgoing queue. `Singleton<DBQueueBroker>::instance()`.
class POSHOST_EXPORT DBQueueBroker
{
public:
    DBQueueBroker() = default;
    virtual ~DBQueueBroker();
    Q_DISABLE_COPY_MOVE(DBQueueBroker)

    /// Puts a message behind those that wait. It is on disk, synced, when this returns.
    /// @param queue   name of the queue, which decides how answers are judged.
    /// @param message what to send: "url", "headers" (name to text) and "body".
    /// @param remark  free text kept with the message; may be empty.
    /// @throws BasicException when the message could not be kept; nothing was then written.
    virtual void enqueue(
        const QString &queue, const QMap<QString, QVariant> &message, const QString &remark);
};

extern template class POSHOST_EXPORT Singleton<DBQueueBroker>;
