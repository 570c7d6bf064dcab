#include "till/queue/deliverytext.h"

using namespace Qt::StringLiterals;

namespace till {

QString deliveryText(const DeliveryReport &report, int waiting)
{
    return u"delivered %1, refused %2, failed %3, parked %4; waiting %5"_s.arg(report.delivered)
        .arg(report.refused)
        .arg(report.failed)
        .arg(report.parked)
        .arg(waiting);
}

Json deliveryObject(const DeliveryReport &report, int waiting)
{
    return {{"delivered", report.delivered}, {"refused", report.refused}, {"failed", report.failed},
        {"parked", report.parked}, {"waiting", waiting}, {"busy", report.busy},
        {"stopped", report.stopped}, {"unauthorised", report.unauthorised}};
}

QStringList deliveryAdvice(const DeliveryReport &report)
{
    QStringList advice;
    if (report.busy)
        advice.append(u"another program is delivering what waits; see korvel-till queue status "
                      u"when it has done so"_s);
    if (report.stopped)
        advice.append(u"the service was not reached, and the rest was not tried; see korvel-till "
                      u"queue status for the error, and look at the network"_s);
    if (report.unauthorised)
        advice.append(u"the service does not accept the credentials of the messages, and the rest "
                      u"was not tried; correct KorvelLoyaltyOnline:user and password, then run "
                      u"korvel-till queue reauthorise"_s);
    if (report.refused + report.parked > 0)
        advice.append(u"refused and parked messages need a person; see korvel-till queue list "
                      u"--state-of refused parked"_s);
    return advice;
}

bool didSomething(const DeliveryReport &report)
{
    return report.delivered + report.refused + report.failed + report.parked > 0;
}

ExitStatus deliveryStatus(const DeliveryReport &report)
{
    const bool allWell = !report.busy && report.refused + report.failed + report.parked == 0;
    return allWell ? ExitStatus::Success : ExitStatus::NotAllDone;
}

} // namespace till
