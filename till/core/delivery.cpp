// What waits in the outgoing queue is sent.

#include "host/config/config.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/storageerror.h"
#include "till/core/till.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::StringLiterals;

namespace till {

namespace {

tr::Tr describe(const DeliveryReport &report, int waiting)
{
    if (report.busy)
        return {u"tillDeliveryBusy"_s, u"Очередь уже отправляет другая программа"_s};
    return tr::Tr(u"tillDelivered"_s, u"Отправка очереди: доставлено %1, отклонено %2, ждут %3"_s)
        .arg(QString::number(report.delivered))
        .arg(QString::number(report.refused))
        .arg(QString::number(waiting));
}

QList<tr::Tr> alarms(const DeliveryReport &report)
{
    QList<tr::Tr> notices;
    if (report.unauthorised)
        notices.append(tr::Tr(u"tillDeliveryUnauthorised"_s,
            u"Система лояльности не принимает пароль, с которым сохранены чеки. Исправьте пароль в "
            u"настройках и выполните korvel-till queue reauthorise"_s));
    if (report.parked > 0)
        notices.append(tr::Tr(u"tillDeliveryParked"_s,
            u"Отложено до решения администратора: %1, см. korvel-till queue list"_s)
                           .arg(QString::number(report.parked)));
    return notices;
}

tr::Tr queueFailed(const StorageError &error)
{
    Log4Qt::LogManager::logger(u"till"_s)->error(QString::fromUtf8(error.what()));
    return {
        u"tillQueueFailed"_s, u"Очередь сообщений недоступна, подробности в журнале программы"_s};
}

} // namespace

Outcome Till::deliver()
{
    auto *queue = Singleton<DBQueueBroker>::instance();
    const DeliveryReport report = queue->deliver();
    Outcome outcome;
    outcome.notices.append(describe(report, queue->waiting()));
    outcome.notices.append(alarms(report));
    return outcome;
}

// A till without its queue still sells: what it cannot queue it will say then.
QList<tr::Tr> Till::openQueue()
{
    try {
        return Singleton<DBQueueBroker>::instance()->open();
    } catch (const StorageError &error) {
        return {queueFailed(error)};
    }
}

// The cheque is closed whatever happens here, so a queue that fails is told and not thrown.
void Till::deliverAfterClose(Outcome &outcome)
{
    const bool wanted = Singleton<Config>::instance()->getBool(u"Queue:deliverAfterClose"_s, true);
    if (!wanted || !m_exchanges.lastSucceeded())
        return;
    try {
        if (Singleton<DBQueueBroker>::instance()->waiting() > 0)
            outcome.notices.append(deliver().notices);
    } catch (const StorageError &error) {
        outcome.notices.append(queueFailed(error));
    }
}

} // namespace till
