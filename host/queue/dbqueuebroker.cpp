#include "host/queue/dbqueuebroker.h"

#include "host/config/config.h"
#include "host/framework/basicexception.h"
#include "host/framework/currenttime.h"
#include "host/framework/session.h"
#include "host/queue/delivery.h"
#include "host/queue/fileoutbox.h"
#include "host/queue/messagerow.h"
#include "host/queue/queuesite.h"
#include "host/queue/server/serveroutbox.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

template class Singleton<DBQueueBroker>;

namespace {

qint64 ballastBytes()
{
    constexpr int usualKilobytes = 1024;
    constexpr qint64 kilobyte = 1024;
    return kilobyte * Singleton<Config>::instance()->getInt(u"Queue:ballastKb"_s, usualKilobytes);
}

std::unique_ptr<Outbox> configuredOutbox()
{
    const QueueSite site = QueueSite::configured(Singleton<StateFolder>::instance()->queue());
    auto local = std::make_unique<FileOutbox>(site.localFile, ballastBytes());
    if (site.address.isEmpty())
        return local;
    return std::make_unique<ServerOutbox>(site.address, std::move(local));
}

QHash<QString, QString> headersFrom(const QVariantMap &values)
{
    QHash<QString, QString> headers;
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        headers.insert(value.key(), value.value().toString());
    return headers;
}

QueueMessage newMessage(const QString &queue, const QVariantMap &contents, const QString &remark)
{
    const auto document = Singleton<Session>::instance()->getCurrentDocument();
    QueueMessage message;
    message.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    message.queue = queue;
    message.remark = remark;
    message.url = contents.value(u"url"_s).toString();
    message.headers = headersFrom(contents.value(u"headers"_s).toMap());
    message.body = contents.value(u"body"_s).toString().toUtf8();
    message.correlationId = document ? document->getCorrelationId() : QString();
    message.lane = document ? document->getShop() + u'-' + document->getTill() : QString();
    message.enqueued = MockFactory<CurrentTime>::create()->currentDateTime();
    message.nextAttempt = message.enqueued;
    return message;
}

} // namespace

DBQueueBroker::DBQueueBroker() = default;
DBQueueBroker::~DBQueueBroker() = default;

Outbox &DBQueueBroker::outbox()
{
    // The database driver ends with the application, so the file must be closed before.
    static const bool closesWithApplication
        = (qAddPostRoutine([] { Singleton<DBQueueBroker>::reset(); }), true);
    Q_UNUSED(closesWithApplication)
    if (!m_outbox)
        m_outbox = configuredOutbox();
    return *m_outbox;
}

QueueOffice DBQueueBroker::openOffice()
{
    const QList<MessageStore *> stores = outbox().toLookAt();
    return QueueOffice(
        *stores.first(), {outbox().unreached(), stores.value(1), outbox().spilled()});
}

void DBQueueBroker::closeQueue(const QueueUnusable &error)
{
    if (m_outbox)
        m_outbox->close(error);
}

QList<tr::Tr> DBQueueBroker::open()
{
    QList<tr::Tr> notices;
    lookAtEach([&notices](MessageStore &store) { notices += store.notices(); });
    return notices;
}

QList<QueueMessage> DBQueueBroker::lookAtEach(const std::function<void(MessageStore &)> &look)
{
    try {
        for (MessageStore *store : outbox().toLookAt())
            look(*store);
        return outbox().spilled();
    } catch (const QueueUnusable &error) {
        closeQueue(error);
        throw;
    }
}

void DBQueueBroker::enqueue(
    const QString &queue, const QMap<QString, QVariant> &message, const QString &remark)
{
    try {
        outbox().put(newMessage(queue, message, remark));
    } catch (const StorageError &error) {
        Log4Qt::LogManager::logger(u"poshost.queue"_s)->error(error.tr().ru());
        throw BasicException(tr::Tr(u"queueMessageNotKept"_s,
            u"Не удалось сохранить чек в очередь отправки: %1. Запишите номер чека и сообщите "
            u"администратору"_s)
                                 .arg(error.tr()));
    }
}

void DBQueueBroker::setVerdict(const QString &queue, const VerdictFunction &verdict)
{
    m_verdicts.insert(queue, verdict);
}

DeliveryReport DBQueueBroker::deliver(const DeliveryObserver &observer)
{
    return outbox().with([this, &observer](MessageStore &store) {
        return delivery::deliver(store, m_verdicts, delivery::Extent::Waiting, observer);
    });
}

DeliveryReport DBQueueBroker::deliverDue(const DeliveryObserver &observer)
{
    return outbox().with([this, &observer](MessageStore &store) {
        return delivery::deliver(store, m_verdicts, delivery::Extent::Due, observer);
    });
}

QDateTime DBQueueBroker::nextDue()
{
    return outbox().with([](MessageStore &store) {
        const QDateTime next = store.nextAttempt();
        const QDateTime held = store.heldUntil();
        return next.isValid() && held.isValid() ? qMax(next, held) : next;
    });
}

QString DBQueueBroker::folder()
{
    return outbox().folder();
}

bool DBQueueBroker::isShared()
{
    return outbox().isShared();
}

int DBQueueBroker::waiting()
{
    int waiting = 0;
    const auto spilled
        = lookAtEach([&waiting](MessageStore &store) { waiting += store.waiting(); });
    return waiting + static_cast<int>(spilled.size());
}

int DBQueueBroker::spilled()
{
    return static_cast<int>(lookAtEach([](MessageStore &) {}).size());
}

QList<QueueMessage> DBQueueBroker::list()
{
    QList<QueueMessage> messages;
    for (const QueueMessage &spilled :
        lookAtEach([&messages](MessageStore &store) { messages += store.undelivered(); }))
        messages.append(messagerow::shortened(spilled));
    return messages;
}
