#include "tests/kills/run.h"

#include "tests/restart/parallel.h"

#include <mutex>

using namespace Qt::StringLiterals;

namespace kills {

namespace {

using Clock = std::chrono::steady_clock;

/// Gathers what the days report, from any thread.
class Gathering
{
public:
    explicit Gathering(const Plan &plan) { m_report.plan = plan; }

    void perform(const DayPlan &plan, bool keep)
    {
        try {
            add(plan, Day(plan).run(keep));
        } catch (const std::exception &error) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            addSentence(plan, u"the day could not be finished"_s, QString::fromUtf8(error.what()));
        }
    }

    [[nodiscard]] Progress progress()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return {0, 0, m_report.tally.kills(), static_cast<std::size_t>(m_report.sentences.size())};
    }

    RunReport report() { return std::move(m_report); }

private:
    void add(const DayPlan &plan, const DayReport &day)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_report.tally.add(day.tally);
        for (const Finding &finding : day.findings)
            addSentence(plan, finding.law,
                finding.sentence
                    + (day.folder.isEmpty() ? QString() : u" (see %1)"_s.arg(day.folder)));
    }

    void addSentence(const DayPlan &plan, const QString &law, const QString &sentence)
    {
        ++m_report.findings[law];
        m_report.sentences.append(
            u"seed %1, day %2: %3: %4"_s.arg(plan.seed).arg(plan.day).arg(law, sentence));
    }

    std::mutex m_mutex;
    RunReport m_report;
};

} // namespace

RunReport run(const Plan &plan, bool keep, const std::function<void(const Progress &)> &tell)
{
    const auto begun = Clock::now();
    const auto days = daysOf(plan);
    Gathering gathering(plan);
    restart::inParallel(
        days.size(), [&](std::size_t day) { gathering.perform(days[day], keep); },
        [&](std::size_t done) {
            Progress progress = gathering.progress();
            progress.days = done;
            progress.ofDays = days.size();
            tell(progress);
        });
    RunReport report = gathering.report();
    report.duration = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - begun);
    return report;
}

} // namespace kills
