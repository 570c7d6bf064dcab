#include "till/queue/watch.h"

#include "host/framework/currenttime.h"
#include "host/storage/storageerror.h"
#include "till/queue/folderwatch.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
#include <log4qt/logmanager.h>

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"till.watch"_s);
}

void tellFailure(const StorageError &error)
{
    complain(QString::fromUtf8(error.what()));
    logger()->error(QString::fromUtf8(error.what()));
}

} // namespace

Watch::Watch(DBQueueBroker &queue, const StopRequest &stop, bool json,
    std::chrono::milliseconds pauseBehindFailure)
    : m_queue(queue)
    , m_stop(stop)
    , m_json(json)
    , m_pauseBehindFailure(pauseBehindFailure)
{ }

DeliveryReport Watch::pass() const
{
    const DeliveryReport report
        = m_queue.deliverDue([this](const DeliveryReport &) { return !m_stop.isMade(); });
    if (didSomething(report))
        tellDelivery(report, rest(), m_json);
    return report;
}

DeliveryRest Watch::rest() const
{
    return {m_queue.waiting(), m_queue.spilled(), m_stop.isMade()};
}

void Watch::run() const
{
    const QString file
        = m_queue.inOffice([](const QueueOffice &office) { return office.fileName(); });
    FolderWatch folder(QFileInfo(file).absolutePath(), m_stop);
    logger()->info(u"watching %1"_s.arg(file));
    while (!m_stop.isMade()) {
        // What comes from now on, during the pass too, is seen behind it.
        folder.forget();
        try {
            const auto pause = passAndPause();
            folder.pause(watchpause::shortest);
            folder.waitForChange(pause);
        } catch (const StorageError &error) {
            tellFailure(error);
            // Deaf to changes: opening the queue again makes some itself.
            folder.pause(m_pauseBehindFailure);
        }
    }
    logger()->info(u"asked to end"_s);
}

std::chrono::milliseconds Watch::passAndPause() const
{
    const DeliveryReport report = pass();
    const QDateTime now = MockFactory<CurrentTime>::create()->currentDateTime();
    return pauseBehind(report, now, m_queue.nextDue());
}

std::chrono::milliseconds pauseBehind(
    const DeliveryReport &report, const QDateTime &now, const QDateTime &nextDue)
{
    if (!nextDue.isValid())
        return watchpause::longest;
    const auto least
        = didSomething(report) ? std::chrono::milliseconds::zero() : watchpause::othersAtWork;
    return std::clamp(std::chrono::milliseconds(now.msecsTo(nextDue)), least, watchpause::longest);
}

namespace queuecommands {

namespace {

int passOnce(const Watch &service)
{
    const DeliveryReport report = service.pass();
    const DeliveryRest rest = service.rest();
    if (!didSomething(report))
        adviseOnDelivery(report, rest);
    return static_cast<int>(deliveryStatus(report, rest));
}

} // namespace

int watch(const QueueOptions &options, bool once)
{
    const StopRequest stop;
    const Watch service(openQueue(options, u"watch"_s), stop, options.json);
    if (once)
        return passOnce(service);
    service.run();
    return static_cast<int>(ExitStatus::Success);
}

} // namespace queuecommands

} // namespace till
