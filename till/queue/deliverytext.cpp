#include "till/queue/deliverytext.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

bool wasCutShort(const DeliveryRest &rest)
{
    return rest.wasEnded && rest.waiting > 0;
}

} // namespace

QString deliveryText(const DeliveryReport &report, const DeliveryRest &rest)
{
    return u"delivered %1, refused %2, failed %3, parked %4; waiting %5"_s.arg(report.delivered)
        .arg(report.refused)
        .arg(report.failed)
        .arg(report.parked)
        .arg(rest.waiting);
}

Json deliveryObject(const DeliveryReport &report, const DeliveryRest &rest)
{
    return {{"delivered", report.delivered}, {"refused", report.refused}, {"failed", report.failed},
        {"parked", report.parked}, {"waiting", rest.waiting}, {"spilled", rest.spilled},
        {"busy", report.busy}, {"stopped", report.stopped}, {"unauthorised", report.unauthorised}};
}

QStringList deliveryAdvice(const DeliveryReport &report, const DeliveryRest &rest)
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
    if (wasCutShort(rest))
        advice.append(u"the delivery was asked to end, and the rest was not tried; run it again"_s);
    if (rest.spilled > 0)
        advice.append(
            u"the queue's file cannot take %1 messages, which are not sent before it can; "
            u"see that its disk has room and that it may be written"_s.arg(rest.spilled));
    return advice;
}

bool didSomething(const DeliveryReport &report)
{
    return report.delivered + report.refused + report.failed + report.parked > 0;
}

ExitStatus deliveryStatus(const DeliveryReport &report, const DeliveryRest &rest)
{
    const bool allWell = !report.busy && !wasCutShort(rest) && rest.spilled == 0
        && report.refused + report.failed + report.parked == 0;
    return allWell ? ExitStatus::Success : ExitStatus::NotAllDone;
}

} // namespace till
