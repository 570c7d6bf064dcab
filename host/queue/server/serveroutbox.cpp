#include "host/queue/server/serveroutbox.h"

#include "host/framework/currenttime.h"
#include "host/queue/delivery.h"
#include "host/queue/leaseowner.h"
#include "host/queue/server/queueserver.h"
#include "host/storage/filelock.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QUuid>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

// A step is over well within what a sale may wait, on a slow line too.
constexpr int movedInOneStep = 20;
// What fails sooner than this may be tried again at once.
constexpr std::chrono::milliseconds noticeableWait{500};

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"poshost.queue"_s);
}

// Machines of one chain may have the same name.
QString uniqueOwner()
{
    return leaseowner::makeName() + u' ' + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace

ServerOutbox::ServerOutbox(QString address, std::unique_ptr<FileOutbox> local)
    : m_address(std::move(address))
    , m_local(std::move(local))
    , m_owner(uniqueOwner())
{ }

ServerOutbox::~ServerOutbox() = default;

void ServerOutbox::put(const QueueMessage &message)
{
    try {
        bounded([this, &message](Clock::time_point deadline) {
            MessageStore &server = reach(deadline);
            const QueueDeadline bounded(server.database(), deadline);
            // What came before goes before.
            if (!moveOver(Clock::now() + longestMove))
                throw StorageError(
                    tr::Tr(u"queueStillMoving"_s, u"%1: туда ещё переносятся прежние сообщения"_s)
                        .arg(server.fileName()));
            server.append(message);
        });
    } catch (const StorageError &error) {
        logger()->error(QString::fromUtf8(error.what()));
        putHere(message);
    }
}

void ServerOutbox::putHere(const QueueMessage &message)
{
    try {
        m_local->put(message);
        logger()->error(
            u"message %1 stays on this machine until the shared queue takes it"_s.arg(message.id));
    } catch (const StorageError &) {
        // This machine can keep nothing, so nothing of it can be overtaken that is not lost.
        if (!m_store)
            throw;
        bounded([this, &message](Clock::time_point) { m_store->append(message); });
    }
}

MessageStore &ServerOutbox::store()
{
    bounded([this](Clock::time_point deadline) {
        const QueueDeadline statements(reach(deadline).database(), deadline);
        try {
            moveOver(Clock::now() + longestMove);
            // Left by deliveries from the file, before the messages were shared.
            m_local->with(
                [](MessageStore &local) { local.deleteDelivered(delivery::keptSince()); });
        } catch (const QueueUnreached &) {
            throw;
        } catch (const StorageError &error) {
            // This machine's disk fails no delivery of what the others have put there.
            logger()->error(QString::fromUtf8(error.what()));
        }
    });
    return *m_store;
}

QList<MessageStore *> ServerOutbox::toLookAt()
{
    QList<MessageStore *> stores;
    try {
        stores.append(&store());
    } catch (const QueueUnreached &error) {
        logger()->warn(QString::fromUtf8(error.what()));
    }
    try {
        stores.append(&m_local->store());
    } catch (const StorageError &error) {
        logger()->error(QString::fromUtf8(error.what()));
        if (stores.isEmpty())
            throw;
    }
    return stores;
}

void ServerOutbox::close(const QueueUnusable &error)
{
    if (!dynamic_cast<const QueueUnreached *>(&error)) {
        m_store.reset();
        m_local->close(error);
        return;
    }
    // Who has waited for the server while it was worked waits for it no second time.
    if (m_store && m_store->database().wasCut())
        pause(error);
    m_store.reset();
}

template <typename Work> void ServerOutbox::bounded(const Work &work)
{
    const Clock::time_point begin = Clock::now();
    if (begin < m_pauseUntil)
        throw QueueUnreached(m_lastFailure);
    try {
        work(begin + longestWait);
        m_lastFailure = {};
    } catch (const QueueUnreached &error) {
        m_store.reset();
        m_lastFailure = error.tr();
        if (Clock::now() - begin > noticeableWait)
            pause(error);
        throw;
    }
}

void ServerOutbox::pause(const QueueUnusable &cause)
{
    m_lastFailure = cause.tr();
    m_pauseUntil = Clock::now() + pauseAfterWait;
}

// A connection that broke since the last time is made anew.
MessageStore &ServerOutbox::reach(Clock::time_point deadline)
{
    const Clock::time_point begin = Clock::now();
    try {
        if (m_store) {
            const QueueDeadline bounded(m_store->database(), deadline);
            m_store->database().run(u"SELECT 1"_s);
        }
    } catch (const QueueUnreached &) {
        m_store.reset();
        if (Clock::now() - begin > noticeableWait)
            throw;
    }
    if (!m_store)
        m_store = std::make_unique<MessageStore>(
            std::make_unique<QueueServer>(ServerAddress::read(m_address), deadline), m_owner);
    return *m_store;
}

// False when there is more than could move until then.
bool ServerOutbox::moveOver(Clock::time_point until)
{
    return m_local->with([this, until](MessageStore &local) {
        if (!local.hasMovable())
            return true;
        // Who delivers from the file, with other settings, has what moves in hand.
        FileLock lock(local.deliveryLock());
        if (!lock.tryLock())
            throw StorageError(tr::Tr(u"queueCannotMoveYet"_s,
                u"%1: сообщения ещё отправляет другая программа, перенести их в общую очередь "
                u"пока нельзя"_s)
                                   .arg(local.fileName()));
        while (Clock::now() < until)
            if (!moveSome(local))
                return true;
        return false;
    });
}

// Written there before they are taken away here: what is killed in between finds its ids there.
bool ServerOutbox::moveSome(MessageStore &local)
{
    const QList<QueueMessage> messages
        = local.firstMovable(movedInOneStep, MockFactory<CurrentTime>::create()->currentDateTime());
    if (messages.isEmpty())
        return false;
    const int added = m_store->takeIn(messages);
    local.removeMoved(messages);
    logger()->info(u"%1 messages moved to the shared queue"_s.arg(added));
    return true;
}
