// The report of a run for people.

#include "tests/kills/laws.h"
#include "tests/kills/run.h"

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using restart::Manner;

QString wordsFor(Manner manner)
{
    switch (manner) {
    case Manner::After:
        return u"at rest"_s;
    case Manner::Asked:
        return u"when it had asked"_s;
    case Manner::Acted:
        return u"when the service had acted"_s;
    case Manner::Answered:
        return u"when the answer was on its way"_s;
    case Manner::Written:
        return u"behind a write to disk"_s;
    }
    Q_UNREACHABLE();
}

QString words(const std::map<Manner, int> &counts)
{
    QStringList parts;
    int sum = 0;
    for (const auto &[manner, count] : counts) {
        parts.append(u"%1 %2"_s.arg(count).arg(wordsFor(manner)));
        sum += count;
    }
    return sum == 0 ? u"0"_s : u"%1: %2"_s.arg(sum).arg(parts.join(u", "_s));
}

QString codes(const std::map<int, int> &documents)
{
    QStringList parts;
    for (const auto &[code, count] : documents)
        parts.append(u"%1 with code %2"_s.arg(count).arg(code));
    return parts.isEmpty() ? u"0"_s : parts.join(u", "_s);
}

QString row(const QString &what, const QString &figure)
{
    return u"| %1 | %2 |\n"_s.arg(what, figure);
}

QString milliseconds(std::chrono::microseconds time)
{
    return u"%1 ms"_s.arg(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

QString doings(const RunReport &report)
{
    const Tally &tally = report.tally;
    return row(u"cheques begun, seed"_s, u"%1, %2"_s.arg(report.plan.cheques).arg(report.plan.seed))
        + row(u"closed; cancelled"_s,
            u"%1 sales, %2 returns; %3"_s.arg(tally.sales).arg(tally.returns).arg(tally.cancelled))
        + row(u"till killed"_s, words(tally.tillsKilled))
        + row(u"deliverer killed"_s, words(tally.deliverersKilled))
        + row(u"answers lost besides"_s,
            u"%1 when the service had acted, %2 when it had not"_s.arg(tally.answersLostActedUpon)
                .arg(tally.answersLostNotActedUpon))
        + row(u"exchanges"_s, QString::number(tally.exchanges))
        + row(u"messages queued; attempts to deliver them"_s,
            u"%1; %2"_s.arg(tally.messages).arg(tally.attempts))
        + row(u"parked, because two deliverers died of them, and taken up again"_s,
            QString::number(tally.parked))
        + row(u"documents that the service does not take, kept for a person"_s,
            codes(tally.waitingForPerson))
        + row(u"longest exchange of a till (limit 1 s)"_s, milliseconds(tally.tillsLongest))
        + row(u"longest exchange of a deliverer (limit 15 s)"_s,
            milliseconds(tally.deliverersLongest))
        + row(u"duration"_s, u"%1 s"_s.arg(report.duration.count()));
}

QString verdicts(const RunReport &report)
{
    QString rows;
    for (const laws::Law &law : laws::all) {
        const QString name = QString::fromLatin1(law.name);
        const auto found = report.findings.find(name);
        rows += row(name, QString::number(found == report.findings.end() ? 0 : found->second));
    }
    return rows;
}

} // namespace

QString markdown(const RunReport &report)
{
    return u"| What was done | |\n|---|---|\n"_s + doings(report)
        + u"\n| Law | broken |\n|---|---|\n"_s + verdicts(report);
}

} // namespace kills
