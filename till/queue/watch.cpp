#include "till/queue/watch.h"

#include "host/framework/currenttime.h"
#include "host/queue/backoff.h"
#include "host/storage/storageerror.h"
#include "till/queue/deliverytext.h"
#include "till/queue/folderwatch.h"
#include "till/queue/output.h"
#include "till/queue/queueaccess.h"
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

/// The service from its start to its end.
class Watch
{
public:
    Watch(DBQueueBroker &queue, const StopRequest &stop, bool json)
        : m_queue(queue)
        , m_stop(stop)
        , m_json(json)
    { }

    DeliveryReport pass() const
    {
        const DeliveryReport report
            = m_queue.deliverDue([this](const DeliveryReport &) { return !m_stop.isMade(); });
        if (didSomething(report))
            tellDelivery(report, m_queue.waiting(), m_json);
        return report;
    }

    void run()
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
                noteUnusable(QString::fromUtf8(error.what()));
                // Deaf to changes: opening the queue again makes some itself.
                folder.pause(
                    backoff::waitAfter(m_failures, QRandomGenerator::global()->generateDouble()));
            }
        }
        logger()->info(u"asked to end"_s);
    }

private:
    [[nodiscard]] std::chrono::milliseconds passAndPause() const
    {
        const DeliveryReport report = pass();
        const QDateTime now = MockFactory<CurrentTime>::create()->currentDateTime();
        return pauseBehind(report, now, m_queue.nextDue());
    }

    // What other machines put into a shared queue changes no file here.
    void waitBehindPass(const FolderWatch &folder, std::chrono::milliseconds pause) const
    {
        const auto end = std::chrono::steady_clock::now() + pause;
        while (
            !folder.waitForChange(m_queue.isShared() ? std::min(pause, watchpause::shared) : pause)
            && !m_stop.isMade() && std::chrono::steady_clock::now() < end) {
            const QDateTime next = m_queue.nextDue();
            if (next.isValid() && next <= MockFactory<CurrentTime>::create()->currentDateTime())
                return;
        }
    }

    void noteUnusable(const QString &reason)
    {
        logger()->error(reason);
        if (++m_failures == 1)
            complain(reason + u"; it is tried again until it can be used"_s);
    }

    void noteUsable()
    {
        if (m_failures == 0)
            return;
        m_failures = 0;
        logger()->info(u"the queue can be used again"_s);
        complain(u"the queue can be used again"_s);
    }

    DBQueueBroker &m_queue;
    const StopRequest &m_stop;
    bool m_json;
    int m_failures = 0; ///< passes in a row that could not use the queue
};

} // namespace

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

int watch(const QueueOptions &options, bool once)
{
    const StopRequest stop;
    Watch service(openQueue(options, u"watch"_s), stop, options.json);
    if (once)
        return static_cast<int>(deliveryStatus(service.pass()));
    service.run();
    return static_cast<int>(ExitStatus::Success);
}

} // namespace queuecommands

} // namespace till
