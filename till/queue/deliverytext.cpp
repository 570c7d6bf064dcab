#include "till/queue/deliverytext.h"

#include "host/framework/tr.h"

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
    return tr::Tr(
        u"queueDelivery"_s, u"доставлено %1, отклонено %2, не удалось %3, отложено %4; ждут %5"_s)
        .arg(QString::number(report.delivered))
        .arg(QString::number(report.refused))
        .arg(QString::number(report.failed))
        .arg(QString::number(report.parked))
        .arg(QString::number(rest.waiting))
        .ui();
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
        advice.append(tr::Tr(u"queueAdviceBusy"_s,
            u"очередь уже отправляет другая программа; итог потом покажет korvel-till queue "
            u"status"_s)
                          .ui());
    if (report.stopped)
        advice.append(tr::Tr(u"queueAdviceStopped"_s,
            u"нет связи с системой лояльности, остальное не отправлялось; ошибку покажет "
            u"korvel-till queue status, проверьте сеть"_s)
                          .ui());
    if (report.unauthorised)
        advice.append(tr::Tr(u"queueAdviceUnauthorised"_s,
            u"система лояльности не принимает имя и пароль сообщений, остальное не "
            u"отправлялось; исправьте KorvelLoyaltyOnline:user и password, затем выполните "
            u"korvel-till queue reauthorise"_s)
                          .ui());
    if (report.refused + report.parked > 0)
        advice.append(tr::Tr(u"queueAdvicePerson"_s,
            u"отклонёнными и отложенными сообщениями должен заняться человек; смотрите "
            u"korvel-till queue list --state-of refused parked"_s)
                          .ui());
    if (wasCutShort(rest))
        advice.append(tr::Tr(u"queueAdviceEnded"_s,
            u"отправку попросили закончить, остальное не отправлялось; запустите её снова"_s)
                          .ui());
    if (rest.spilled > 0)
        advice.append(tr::Tr(u"queueAdviceSpilled"_s,
            u"%n сообщений не помещаются в файл очереди и до тех пор не отправляются; "
            u"проверьте, есть ли место на диске и можно ли писать в файл"_s)
                          .ui(rest.spilled));
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
