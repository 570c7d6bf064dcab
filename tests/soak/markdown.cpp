// The report of a soak for people.

#include "tests/soak/soak.h"

using namespace Qt::StringLiterals;

namespace soak {

namespace {

constexpr double bytesPerKibibyte = 1024.0;
constexpr double percent = 100.0;
constexpr int decimals = 4;

QString row(const QString &what, const QString &wanted, const QString &measured)
{
    return u"| %1 | %2 | %3 |\n"_s.arg(what, wanted, measured);
}

QString kibibytes(qint64 bytes)
{
    return u"%1 KiB"_s.arg(static_cast<double>(bytes) / bytesPerKibibyte, 0, 'f', 0);
}

QString interval(const Slope &slope)
{
    return u"%1 to %2 %"_s.arg((slope.value - slope.halfWidth) * percent, 0, 'f', decimals)
        .arg((slope.value + slope.halfWidth) * percent, 0, 'f', decimals);
}

QString firstAndLast(const Report &report, double ChequeTimes::*which)
{
    return u"%1 µs; %2 µs"_s.arg(report.times.front().*which, 0, 'f', 0)
        .arg(report.times.back().*which, 0, 'f', 0);
}

} // namespace

QString markdown(const Report &report)
{
    const Plan &plan = report.plan;
    return u"| What | Wanted | Measured |\n|---|---|---|\n"_s
        + row(u"cheques in one till; with a fault; seed"_s, u"about one in a hundred"_s,
            u"%1; %2; %3"_s.arg(plan.cheques).arg(report.faults).arg(plan.seed))
        + row(u"memory behind the first %1 cheques"_s.arg(plan.settling), u""_s,
            kibibytes(report.settled.memory))
        + row(u"how much it has grown since"_s, u"less than 2048 KiB"_s, kibibytes(report.growth()))
        + row(u"open descriptors then; at the end"_s, u"no more"_s,
            u"%1; %2"_s.arg(report.settled.descriptors).arg(report.ended.descriptors))
        + row(u"processor for a cheque, first and last %1"_s.arg(chequesOfBlock), u""_s,
            firstAndLast(report, &ChequeTimes::old))
        + row(u"the same in a fresh till meanwhile"_s, u""_s,
            firstAndLast(report, &ChequeTimes::fresh))
        + row(u"growth of the one divided by the other from each %1 cheques to the next, "
              "95 % interval"_s.arg(chequesOfBlock),
            u"holds 0"_s, interval(report.slope()))
        + row(u"duration"_s, u""_s, u"%1 s"_s.arg(report.duration.count()));
}

} // namespace soak
