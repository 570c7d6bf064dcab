#include "host/queue/queuelook.h"

#include "host/queue/messagerow.h"
#include "host/queue/messagestore.h"
#include "host/queue/messagetable.h"
#include "host/queue/queueerror.h"
#include "host/queue/server/serveraddress.h"
#include "host/queue/spillfile.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A database that somebody else keeps.
class LookedAt : public QueueHome
{
public:
    explicit LookedAt(std::unique_ptr<QueueDatabase> database)
        : m_database(std::move(database))
    { }

    [[nodiscard]] QueueDatabase &database() override { return *m_database; }
    [[nodiscard]] QList<tr::Tr> notices() const override { return {}; }
    [[nodiscard]] QString deliveryLock() const override { return {}; }

private:
    std::unique_ptr<QueueDatabase> m_database;
};

std::unique_ptr<MessageStore> storeOf(std::unique_ptr<QueueDatabase> database)
{
    return std::make_unique<MessageStore>(std::make_unique<LookedAt>(std::move(database)), u""_s);
}

std::unique_ptr<MessageStore> storeOfFile(const QString &fileName)
{
    if (!QFileInfo::exists(fileName))
        return {};
    return storeOf(std::make_unique<QueueDatabase>(fileName, QueueDatabase::Use::Look));
}

QList<QueueMessage> newestOf(MessageStore &store, int count)
{
    QSqlQuery row = store.database().run(
        messagetable::select(messagerow::columns()) + u"ORDER BY number DESC LIMIT ?"_s, {count});
    QList<QueueMessage> messages;
    while (row.next())
        messages.prepend(messagetable::messageFrom(row));
    return messages;
}

} // namespace

QueueLook::QueueLook(const QueueSite &site)
    : m_spilled(SpillFile(site.localFile + u".spill"_s).messages())
    , m_store(storeOfFile(site.localFile))
{
    if (!site.address.isEmpty())
        openShared(site.address);
}

QueueLook::~QueueLook() = default;

void QueueLook::openShared(const QString &address)
{
    try {
        auto shared = storeOf(std::make_unique<QueueDatabase>(ServerAddress::read(address)));
        m_local = std::move(m_store);
        m_store = std::move(shared);
    } catch (const QueueUnreached &error) {
        m_unreached = error.tr();
    }
}

QueueOffice QueueLook::office()
{
    return QueueOffice(*m_store, {m_unreached, m_local.get(), m_spilled});
}

QueueOffice::Status QueueLook::status()
{
    if (isThere())
        return office().status();
    QueueOffice::Status status;
    status.unreached = m_unreached;
    status.spilled = m_spilled.size();
    status.counts[MessageState::Pending] = status.spilled;
    return status;
}

QList<QueueMessage> QueueLook::ofDocument(const QString &correlationId)
{
    if (isThere())
        return office().ofDocument(correlationId);
    QList<QueueMessage> messages = m_spilled;
    messages.removeIf([&correlationId](const QueueMessage &message) {
        return message.correlationId != correlationId;
    });
    return messages;
}

QList<QueueMessage> QueueLook::newest(int count)
{
    QList<QueueMessage> messages;
    if (m_store)
        messages += newestOf(*m_store, count);
    if (m_local)
        messages += newestOf(*m_local, count);
    messages += m_spilled;
    std::stable_sort(messages.begin(), messages.end(),
        [](const auto &left, const auto &right) { return left.enqueued < right.enqueued; });
    return messages.last(qMin<qsizetype>(messages.size(), count));
}
