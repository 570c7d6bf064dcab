#pragma once

#include "host/queue/messagestore.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"

#include <gtest/gtest.h>

inline const QDateTime noon(QDate(2024, 11, 21), QTime(12, 0), Qt::UTC);

/// Two deliverers at one queue, at noon.
class LeaseFixture : public testing::Test, public QueueFixture
{
protected:
    LeaseFixture() { queue()->open(); }

    void givenMessageOfLane(const QString &id, const QString &lane)
    {
        QueueMessage message;
        message.id = id;
        message.lane = lane;
        message.enqueued = noon;
        message.nextAttempt = noon;
        one.append(message);
    }
    static QString idOf(const CheckedOut &taken)
    {
        return taken.message ? taken.message->id : QStringLiteral("none");
    }
    static QVariantList stateOf(const QString &id)
    {
        return ask(
            QStringLiteral("SELECT state, attempts, deliverers_lost FROM messages WHERE id = ?"),
            {id});
    }

    const std::unique_ptr<MessageStore> ownStore = queueengine::openStore();
    const std::unique_ptr<MessageStore> otherStore = queueengine::openStore();
    MessageStore &one = *ownStore;
    MessageStore &other = *otherStore;
    Wanted wanted{noon};
};
