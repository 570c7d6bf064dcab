#pragma once

#include "host/framework/tr.h"
#include "host/queue/outbox.h"
#include "host/queue/spillfile.h"

#include <memory>

/// Keeps messages in the queue's file, and where that cannot take them, in the spill file beside it
/// until it can. So that a full disk still takes some, it keeps a ballast file whose room it gives
/// up then.
class POSHOST_EXPORT FileOutbox : public Outbox
{
public:
    /// Opens nothing yet.
    /// @param ballastBytes size of the ballast file; 0: none.
    FileOutbox(const QString &fileName, qint64 ballastBytes);

    [[nodiscard]] QString fileName() const { return m_fileName; }

    void put(const QueueMessage &message) override;
    [[nodiscard]] MessageStore &store() override;
    [[nodiscard]] QList<MessageStore *> toLookAt() override;
    [[nodiscard]] QString folder() const override;
    /// A file that cannot be read is logged, and has none then: it fails no delivery.
    [[nodiscard]] QList<QueueMessage> spilled() override;
    void close(const QueueUnusable &error) override;

private:
    bool keepBallast() const;
    void takeInSpilled();
    void spill(const QueueMessage &message);

    QString m_fileName;
    qint64 m_ballastBytes;
    SpillFile m_spill;
    std::unique_ptr<MessageStore> m_store;
    tr::Tr m_knownDamage;
};
