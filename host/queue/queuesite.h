#pragma once

#include "host/export.h"

#include <QString>

/// Where a till's outgoing queue is.
struct POSHOST_EXPORT QueueSite
{
    QString localFile; ///< of this machine: the queue's file, or the one beside a shared queue
    QString address; ///< of a shared queue, with its password; empty: there is none

    /// As "Queue:database" has it.
    /// @param queueFolder of the state folder, where the file is unless the setting names another.
    [[nodiscard]] static QueueSite configured(const QString &queueFolder);
};
