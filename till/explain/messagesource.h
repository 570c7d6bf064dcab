#pragma once

#include "host/framework/tr.h"
#include "host/queue/queuelook.h"

#include <QList>
#include <QString>

#include <memory>

namespace till::explain {

/// Where the messages of documents are asked for.
class MessageSource
{
public:
    MessageSource() = default;
    virtual ~MessageSource();
    Q_DISABLE_COPY_MOVE(MessageSource)

    /// The messages of the document, in the order of enqueueing.
    /// @throws StorageError when they cannot be read.
    [[nodiscard]] virtual QList<QueueMessage> ofDocument(const QString &correlationId) = 0;
    /// Why only a part can be seen; empty: everything can.
    [[nodiscard]] virtual tr::Tr problem() const = 0;
};

/// The queue itself, while others work it. A queue that cannot be opened is the source's problem.
[[nodiscard]] std::unique_ptr<MessageSource> messagesOfQueue(const QueueSite &site);

/// The messages that an archive for support holds.
/// @param fileName JSON, an array of messages as `queue show --json` writes them.
[[nodiscard]] std::unique_ptr<MessageSource> messagesOfArchive(const QString &fileName);

} // namespace till::explain
