// A till that is killed at every command of every scenario.

#include "tests/restart/course.h"
#include "tests/restart/laws.h"
#include "tests/restart/parallel.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <iostream>
#include <mutex>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

constexpr std::size_t casesPerProgressLine = 100;

/// What came of all cases. May be told from any thread.
class Findings
{
public:
    void add(const QString &title, const QStringList &sentences, const QStringList &skipped)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (const QString &complaint : skipped)
            m_skipped.append(title + u": "_s + complaint);
        for (const QString &sentence : sentences)
            m_sentences.append(title + u": "_s + sentence);
    }

    void tellProgress(std::size_t done, std::size_t count)
    {
        if (done % casesPerProgressLine != 0 && done != count)
            return;
        const std::lock_guard<std::mutex> lock(m_mutex);
        std::cout << "restart: " << done << " of " << count << " cases, " << m_sentences.size()
                  << " findings, " << m_skipped.size() << " commands that made no sense any more"
                  << std::endl;
    }

    void tellSkipped() const
    {
        for (const QString &complaint : m_skipped)
            std::cout << "skipped: " << complaint.toStdString() << '\n';
    }

    [[nodiscard]] QStringList sentences() const { return m_sentences; }

private:
    std::mutex m_mutex;
    QStringList m_sentences;
    QStringList m_skipped;
};

/// The scenarios with what happens in them when nobody kills the till.
class RestartTest : public testing::Test
{
public:
    RestartTest()
        : m_scenarios(scenariosIn(QStringLiteral(RESTART_SOURCE_FOLDER "/scenarios")))
        , m_undisturbed(m_scenarios.size())
    { }

    void SetUp() override
    {
        ASSERT_FALSE(m_scenarios.empty());
        inParallel(
            m_scenarios.size(), [this](std::size_t one) { record(one); }, [](std::size_t) {});
        ASSERT_TRUE(m_findings.sentences().isEmpty()) << "without any kill";
    }

    void TearDown() override
    {
        m_findings.tellSkipped();
        const QStringList sentences = m_findings.sentences();
        for (const QString &sentence : sentences)
            ADD_FAILURE() << sentence.toStdString();
    }

    [[nodiscard]] std::vector<KillCase> everyCase() const
    {
        std::vector<KillCase> cases;
        for (std::size_t one = 0; one < m_scenarios.size(); ++one) {
            const auto kills = killsOf(m_scenarios[one], m_undisturbed[one].activities);
            cases.insert(cases.end(), kills.begin(), kills.end());
        }
        return cases;
    }

    void whenKilled(const std::vector<KillCase> &cases)
    {
        inParallel(
            cases.size(), [&](std::size_t one) { perform(cases[one]); },
            [&](std::size_t done) { m_findings.tellProgress(done, cases.size()); });
    }

private:
    void record(std::size_t one)
    {
        const Scenario &scenario = m_scenarios[one];
        perform(scenario, scenario.name, [&](Course &course) {
            Outcome outcome = course.run();
            m_undisturbed[one] = outcome;
            return outcome;
        });
    }

    void perform(const KillCase &one)
    {
        const auto scenario = static_cast<std::size_t>(one.scenario - m_scenarios.data());
        perform(*one.scenario, one.name(),
            [&](Course &course) { return course.run(one.kill, m_undisturbed[scenario].objects); });
    }

    void perform(
        const Scenario &scenario, const QString &title, const std::function<Outcome(Course &)> &run)
    {
        try {
            Course course(scenario);
            const Outcome outcome = run(course);
            QStringList sentences = laws::violations(outcome.books);
            if (!sentences.isEmpty() && qEnvironmentVariableIsSet("RESTART_KEEP"))
                sentences.append(u"see %1"_s.arg(course.keepFolder()));
            m_findings.add(title, sentences, outcome.skipped);
        } catch (const std::exception &error) {
            m_findings.add(title, {QString::fromUtf8(error.what())}, {});
        }
    }

    std::vector<Scenario> m_scenarios;
    std::vector<Outcome> m_undisturbed;
    Findings m_findings;
};

TEST_F(RestartTest, Sample)
{
    whenKilled(sampleOf(everyCase()));
}

TEST_F(RestartTest, All)
{
    whenKilled(everyCase());
}

// For a look at a few: RESTART_CASES holds a pattern such as "points:*:acted:1".
TEST_F(RestartTest, Chosen)
{
    const QString pattern = qEnvironmentVariable("RESTART_CASES");
    const auto chosen = QRegularExpression::fromWildcard(pattern);
    std::vector<KillCase> cases;
    for (const KillCase &one : everyCase())
        if (chosen.match(one.name()).hasMatch())
            cases.push_back(one);
    if (cases.empty())
        GTEST_SKIP() << "RESTART_CASES names no case: " << pattern.toStdString();
    whenKilled(cases);
}

} // namespace

} // namespace restart
