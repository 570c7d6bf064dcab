#include "host/queue/dbqueuebroker.h"

#include "host/config/config.h"
#include "host/framework/basicexception.h"
#include "host/framework/currenttime.h"
#include "host/framework/session.h"
#include "host/queue/delivery.h"
#include "host/queue/outbox.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

template class Singleton<DBQueueBroker>;

namespace {

const QString databaseSetting = u"Queue:database"_s;

QString databaseFile()
{
    const auto *const config = Singleton<Config>::instance();
    if (config->getString(databaseSetting, {}).contains(u"://"_s))
        throw StorageError(u"%1: an address where the path of a file was expected; give a path, or "
                           u"leave the setting out"_s.arg(databaseSetting));
    const QString usual = Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s;
    return config->getPath(databaseSetting, usual);
}

qint64 ballastBytes()
{
    constexpr int usualKilobytes = 1024;
    constexpr qint64 kilobyte = 1024;
    return kilobyte * Singleton<Config>::instance()->getInt(u"Queue:ballastKb"_s, usualKilobytes);
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
        m_outbox = std::make_unique<Outbox>(databaseFile(), ballastBytes());
    return *m_outbox;
}

MessageStore &DBQueueBroker::openStore()
{
    return outbox().store();
}

void DBQueueBroker::closeDamaged(const QueueDamaged &error)
{
    outbox().closeDamaged(QString::fromUtf8(error.what()));
}

QList<tr::Tr> DBQueueBroker::open()
{
    return outbox().with([](MessageStore &store) { return store.notices(); });
}

void DBQueueBroker::enqueue(
    const QString &queue, const QMap<QString, QVariant> &message, const QString &remark)
{
    try {
        outbox().put(newMessage(queue, message, remark));
    } catch (const StorageError &error) {
        const QString reason = QString::fromUtf8(error.what());
        Log4Qt::LogManager::logger(u"poshost.queue"_s)->error(reason);
        throw BasicException(tr::Tr(u"queueMessageNotKept"_s,
            u"Не удалось сохранить чек в очередь отправки: %1. Запишите номер чека и сообщите "
            u"администратору"_s)
                                 .arg(reason));
    }
}

void DBQueueBroker::setVerdict(const QString &queue, VerdictFunction verdict)
{
    m_verdicts.insert(queue, std::move(verdict));
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

int DBQueueBroker::waiting()
{
    return outbox().with([](MessageStore &store) { return store.waiting(); });
}

QList<QueueMessage> DBQueueBroker::list()
{
    return outbox().with([](MessageStore &store) { return store.undelivered(); });
}
