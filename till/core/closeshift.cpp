// The shift ends.

#include "host/queue/dbqueuebroker.h"
#include "host/storage/journal.h"
#include "till/core/registration.h"
#include "till/core/shift.h"
#include "till/core/till.h"

using namespace Qt::StringLiterals;

namespace till {

namespace {

QList<tr::Tr> describe(const ShiftSums &sums)
{
    return {tr::Tr(u"tillShiftSales"_s, u"Продажи: %1, сумма %2"_s)
                .arg(QString::number(sums.sales))
                .argAmount(sums.sold),
        tr::Tr(u"tillShiftReturns"_s, u"Возвраты: %1, сумма %2"_s)
            .arg(QString::number(sums.returns))
            .argAmount(sums.returned),
        tr::Tr(u"tillShiftPoints"_s, u"Баллы: начислено %1, списано %2"_s)
            .argAmount(sums.pointsEarned)
            .argAmount(sums.pointsSpent)};
}

} // namespace

Outcome Till::closeShift()
{
    auto *queue = Singleton<DBQueueBroker>::instance();
    const int waiting = queue->waiting();
    const Shift shift(m_store);
    const auto closed = shift.documents();
    const auto unconfirmed = unconfirmedOf(closed, [queue](const QString &correlationId) {
        return queue->inOffice(
            [&correlationId](QueueOffice &office) { return office.ofDocument(correlationId); });
    });
    const ShiftSums sums = sumUp(closed);
    shift.end(closed);
    Journal::append(u"shift"_s,
        {{u"sales"_s, sums.sales}, {u"sold"_s, sums.sold}, {u"returns"_s, sums.returns},
            {u"returned"_s, sums.returned}, {u"pointsEarned"_s, sums.pointsEarned},
            {u"pointsSpent"_s, sums.pointsSpent}, {u"waiting"_s, waiting},
            {u"unconfirmed"_s, static_cast<int>(unconfirmed.size())}});
    Outcome outcome;
    outcome.notices = describe(sums);
    outcome.notices.append(
        tr::Tr(u"tillShiftWaiting"_s, u"Ждут отправки: %1"_s).arg(QString::number(waiting)));
    for (const Unconfirmed &document : unconfirmed)
        outcome.notices.append(describe(document));
    outcome.hasOpenEnds = !unconfirmed.isEmpty();
    if (const auto open = document())
        outcome.notices.append(
            tr::Tr(u"tillShiftOpenDocument"_s, u"Открыт документ %1"_s).arg(open->getNumber()));
    return outcome;
}

} // namespace till
