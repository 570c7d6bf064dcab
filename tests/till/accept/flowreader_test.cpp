// Reading rules and flows.

#include "tests/till/accept/runfixture.h"
#include "till/core/cannotdo.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <ostream>

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

const QByteArray rules
    = R"({"rules": [{"id": "known", "section": "Balance", "text": {"en": "e", "ru": "r"}}]})";

/// A folder like `protocol/` with one rule and the schema and samples that are built in.
class OwnProtocol
{
public:
    OwnProtocol()
    {
        QDir(m_folder.path()).mkpath(u"acceptance"_s);
        QDir(m_folder.path()).mkpath(u"samples"_s);
        const QDir samples(builtInProtocol() + u"/samples"_s);
        for (const QString &name : samples.entryList(QDir::Files))
            QFile::copy(samples.filePath(name), m_folder.filePath(u"samples/"_s + name));
        for (const QString &name : {u"loyalty.xsd"_s, u"soap-envelope.xsd"_s})
            QFile::copy(builtInProtocol() + u'/' + name, m_folder.filePath(name));
        write(u"rules.json"_s, rules);
    }
    void write(const QString &name, const QByteArray &contents) const
    {
        QFile file(m_folder.filePath(u"acceptance/"_s + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    [[nodiscard]] QString path() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

QByteArray flowWith(const QByteArray &members)
{
    return R"({"flow": "one", "title": {"en": "e", "ru": "r"}, )" + members + "}";
}

QByteArray stepWith(const QByteArray &members)
{
    return flowWith(R"("steps": [{"step": "s", )" + members + "}]");
}

QString complaintAbout(const QByteArray &flow)
{
    const OwnProtocol protocol;
    protocol.write(u"10-one.json"_s, flow);
    try {
        static_cast<void>(readAcceptance(protocol.path()));
        return {};
    } catch (const till::CannotDo &error) {
        return error.text();
    }
}

struct Row
{
    const char *name;
    QByteArray flow;
    const char *place; ///< that the complaint names
};

void PrintTo(const Row &row, std::ostream *out)
{
    *out << row.name;
}

class WrongFlowTest : public testing::TestWithParam<Row>
{ };

TEST_P(WrongFlowTest, IsToldWithFileAndPlace)
{
    const QString complaint = complaintAbout(GetParam().flow);
    EXPECT_TRUE(complaint.contains(u"10-one.json"_s)) << qPrintable(complaint);
    EXPECT_TRUE(complaint.contains(QLatin1String(GetParam().place))) << qPrintable(complaint);
    EXPECT_TRUE(complaint.contains(u"docs/acceptance.md"_s));
}

const QByteArray goodCheck = R"("rule": "known", "that": "s.ReturnCode")";

INSTANTIATE_TEST_SUITE_P(Every, WrongFlowTest,
    testing::Values(Row{"Syntax", "{\"flow\": ", "10-one.json:1:10: syntax error"},
        Row{"NoSteps", flowWith(R"("writes": true)"), "steps"},
        Row{"UnknownMember", flowWith(R"("steps": [], "step": 1)"), "step"},
        Row{"NoTitleInALanguage", R"({"flow": "one", "title": {"en": "e"}, "steps": []})",
            "/title"},
        Row{"NeitherSampleNorBody", stepWith(R"("without": [])"), "/steps/0"},
        Row{"SampleAndBody", stepWith(R"("send": "balance-request", "body": "x")"), "/steps/0"},
        Row{"UnknownSample", stepWith(R"("send": "nothing")"), "/steps/0/send"},
        Row{"UnknownMemberOfAStep", stepWith(R"("send": "balance-request", "sett": {})"), "sett"},
        Row{"CredentialsOtherwise", stepWith(R"("body": "x", "credentials": "none")"),
            "/steps/0/credentials"},
        Row{"AnswerOtherwise", stepWith(R"("body": "x", "answer": "any")"), "/steps/0/answer"},
        Row{"PositionWithoutQuantity", stepWith(R"("body": "x", "positions": [{"article": 1}])"),
            "/steps/0/positions/0"},
        Row{"UnknownRule",
            stepWith(R"("body": "x", "checks": [{"rule": "no", "that": "1", "is": "1"}])"),
            "/steps/0/checks/0/rule"},
        Row{"CheckWithoutRelation", stepWith(R"("body": "x", "checks": [{)" + goodCheck + "}]"),
            "/steps/0/checks/0"},
        Row{"CheckWithTwoRelations",
            stepWith(
                R"("body": "x", "checks": [{)" + goodCheck + R"(, "is": "1", "atMost": "1"}])"),
            "/steps/0/checks/0"},
        Row{"MarginThatIsNoNumber",
            stepWith(
                R"("body": "x", "checks": [{)" + goodCheck + R"(, "is": "1", "within": "a"}])"),
            "/steps/0/checks/0/within"},
        Row{"MarginBelowZero",
            stepWith(
                R"("body": "x", "checks": [{)" + goodCheck + R"(, "is": "1", "within": "-1"}])"),
            "/steps/0/checks/0/within"},
        Row{"ConditionWithoutReason", stepWith(R"("body": "x", "if": {"that": "1", "is": "1"})"),
            "/steps/0/if"},
        Row{"TwoStepsOfOneName",
            flowWith(R"("steps": [{"step": "s", "body": "x"}, {"step": "s", "body": "x"}])"),
            "/steps/1/step"},
        Row{"FindingWithoutOtherwise",
            flowWith(
                R"("steps": [], "findings": [{"finding": "f", "about": {"en": "e", "ru": "r"}, "cases": []}])"),
            "/findings/0"}),
    [](const auto &row) { return row.param.name; });

TEST(FlowReaderTest, TwoFlowsOfOneNameAreAnError)
{
    const OwnProtocol protocol;
    protocol.write(u"10-one.json"_s, flowWith(R"("steps": [])"));
    protocol.write(u"11-again.json"_s, flowWith(R"("steps": [])"));
    EXPECT_THROW(static_cast<void>(readAcceptance(protocol.path())), till::CannotDo);
}

TEST(FlowReaderTest, FlowsComeInTheOrderOfTheirFiles)
{
    QStringList ids;
    for (const Flow &flow : readAcceptance(builtInProtocol()).flows)
        ids.append(flow.id);
    EXPECT_EQ(ids.join(u' '),
        u"balance unknown-card calculation points coupons malformed registration repeat spend code return rollback"_s);
}

TEST(FlowReaderTest, WhatIsBuiltInIsWhatTheTreeHolds)
{
    const Acceptance ours = readAcceptance(builtInProtocol());
    const Acceptance trees = readAcceptance(QStringLiteral(KORVEL_SOURCE_DIR "/protocol"));
    EXPECT_EQ(ours.flows.size(), trees.flows.size());
    EXPECT_EQ(ours.rules.size(), trees.rules.size());
}

TEST(FlowReaderTest, AllIsWrittenInBothLanguages)
{
    const Acceptance acceptance = readAcceptance(builtInProtocol());
    for (const Rule &rule : acceptance.rules)
        EXPECT_TRUE(!rule.text.english.isEmpty() && !rule.text.russian.isEmpty())
            << qPrintable(rule.id);
    for (const Flow &flow : acceptance.flows)
        EXPECT_TRUE(!flow.title.english.isEmpty() && !flow.title.russian.isEmpty())
            << qPrintable(flow.id);
}

/// The flow that the guide shows.
class GuideTest : public RunFixture
{
public:
    static QByteArray shownFlow()
    {
        QFile guide(QStringLiteral(KORVEL_SOURCE_DIR "/docs/acceptance.md"));
        EXPECT_TRUE(guide.open(QIODevice::ReadOnly));
        const QByteArray text = guide.readAll();
        const qsizetype begin = text.indexOf("{\n  \"flow\": \"doubled\"");
        return text.mid(begin, text.indexOf("```", begin) - begin);
    }
};

TEST_F(GuideTest, TheFlowThatItShowsRuns)
{
    const OwnProtocol protocol;
    QFile::remove(protocol.path() + u"/acceptance/rules.json"_s);
    QFile::copy(builtInProtocol() + u"/acceptance/rules.json"_s,
        protocol.path() + u"/acceptance/rules.json"_s);
    protocol.write(u"20-doubled.json"_s, shownFlow());
    const Acceptance read = readAcceptance(protocol.path());
    ASSERT_EQ(read.flows.size(), 1);
    RunSettings settings = usualSettings(url);
    settings.protocolFolder = protocol.path();
    const Report report = Runner(settings).run(read.flows);
    EXPECT_EQ(report.count(Verdict::Failed), 0);
    EXPECT_EQ(resultOf(report, u"totals.sum"_s).verdict, Verdict::Passed);
}

} // namespace
