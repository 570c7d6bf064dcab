#include "till/queue/sending.h"

#include "till/queue/output.h"
#include "till/queue/progressline.h"
#include "till/queue/queueaccess.h"
#include "till/queue/stoprequest.h"

using namespace Qt::StringLiterals;

namespace till::queuecommands {

namespace {

DeliveryReport deliverShowing(DBQueueBroker &queue, const StopRequest &stop, bool showsProgress)
{
    if (!showsProgress)
        return queue.deliver([&stop](const DeliveryReport &) { return !stop.isMade(); });
    ProgressLine line(stdout, queue.waiting());
    return queue.deliver([&stop, &line](const DeliveryReport &soFar) {
        line.show(soFar);
        return !stop.isMade();
    });
}

} // namespace

int deliver(const QueueOptions &options)
{
    DBQueueBroker &queue = openQueue(options, oneTimeLogFolder);
    const StopRequest stop;
    const DeliveryReport report = deliverShowing(queue, stop, !options.json);
    const DeliveryRest rest{queue.waiting(), queue.spilled(), stop.isMade()};
    tellDelivery(report, rest, options.json);
    return static_cast<int>(deliveryStatus(report, rest));
}

} // namespace till::queuecommands
