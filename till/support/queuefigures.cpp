#include "till/support/queuefigures.h"

#include "host/framework/currenttime.h"
#include "till/queue/backlog.h"
#include "till/queue/statusreport.h"

namespace till::support {

Json queueFigures(QueueLook &queue)
{
    const QueueOffice::Status status = queue.status();
    const QDateTime now = MockFactory<CurrentTime>::create()->currentDateTime();
    return statusObject(status, now, judgeBacklog(status, now, BacklogLimits::configured()));
}

} // namespace till::support
