#include "till/queue/watch.h"

#include "host/framework/currenttime.h"
#include "host/storage/storageerror.h"
#include "till/queue/folderwatch.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QRandomGenerator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const Log4Qt::Logger *logger()
{
    return Log4Qt::LogManager::logger(u"till.watch"_s);
}

} // namespace

Watch::Watch(DBQueueBroker &queue, const StopRequest &stop, bool json,
    std::chrono::milliseconds longestPauseBehindFailure)
    : m_queue(queue)
    , m_stop(stop)
    , m_json(json)
    , m_longestPauseBehindFailure(longestPauseBehindFailure)
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

void Watch::run()
{
    FolderWatch folder(m_queue.folder(), m_stop);
    logger()->info(u"watching %1"_s.arg(m_queue.folder()));
    while (!m_stop.isMade()) {
        // What comes from now on, during the pass too, is seen behind it.
        folder.forget();
        try {
            const auto pause = passAndPause();
            noteUsable();
            folder.pause(watchpause::shortest);
            waitBehindPass(folder, pause);
        } catch (const StorageError &error) {
            noteUnusable(error.tr());
            // Deaf to changes: opening the queue again makes some itself.
            folder.pause(pauseBehindFailure());
        }
    }
    logger()->info(u"asked to end"_s);
}

std::chrono::milliseconds Watch::pauseBehindFailure() const
{
    return std::min(backoff::waitAfter(m_failures, QRandomGenerator::global()->generateDouble()),
        m_longestPauseBehindFailure);
}

// What other machines put into a shared queue changes no file here.
void Watch::waitBehindPass(const FolderWatch &folder, std::chrono::milliseconds pause) const
{
    const auto atMost = m_queue.isShared() ? std::min(pause, watchpause::shared) : pause;
    const auto end = std::chrono::steady_clock::now() + pause;
    while (!folder.waitForChange(atMost) && !m_stop.isMade()
        && std::chrono::steady_clock::now() < end) {
        const QDateTime next = m_queue.nextDue();
        if (next.isValid() && next <= MockFactory<CurrentTime>::create()->currentDateTime())
            return;
    }
}

void Watch::noteUnusable(const tr::Tr &reason)
{
    logger()->error(reason.ru());
    if (++m_failures == 1)
        complain(tr::Tr(
            u"queueTriedAgain"_s, u"%1; попытки повторяются, пока очередь не станет доступна"_s)
                     .arg(reason)
                     .ui());
}

void Watch::noteUsable()
{
    if (m_failures == 0)
        return;
    m_failures = 0;
    logger()->info(u"the queue can be used again"_s);
    complain(tr::Tr(u"queueUsableAgain"_s, u"очередь снова доступна"_s).ui());
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
    Watch service(openQueue(options, u"watch"_s), stop, options.json);
    if (once)
        return passOnce(service);
    service.run();
    return static_cast<int>(ExitStatus::Success);
}

} // namespace queuecommands

} // namespace till
