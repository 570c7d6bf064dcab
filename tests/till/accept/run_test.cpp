// Runs against a real service: what is asked, what is offered, and that nothing stays booked.

#include "tests/emulator/support/httpclient.h"
#include "tests/till/accept/message.h"
#include "tests/till/accept/runfixture.h"
#include "tests/till/accept/wrongs.h"
#include "till/core/cannotdo.h"

#include <QFile>
#include <QTemporaryDir>

#include <nlohmann/json.hpp>

#include <atomic>

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

using Ask = WrongService::Ask;

class RunTest : public RunFixture
{
public:
    /// What a run that books found out about a wrong service of that name.
    [[nodiscard]] QString findingAbout(const char *name) const
    {
        for (const Wrong &wrong : wrongs())
            if (QByteArray(wrong.name) == name)
                return findingBehind(wrong.change());
        return {};
    }
    [[nodiscard]] QString findingBehind(const WrongService::Change &change) const
    {
        const WrongService wrong(url, change);
        return findingOf(usualSettings(wrong.url()));
    }
    [[nodiscard]] QString findingOf(const RunSettings &settings) const
    {
        return whenRun(settings, u"repeat"_s).flows.first().findings.first().caseId;
    }
};

TEST_F(RunTest, TheRealServicePassesCompletely)
{
    const Report report = whenRun(usualSettings(url));
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    EXPECT_EQ(report.count(Verdict::NotReached), 0);
    EXPECT_EQ(report.count(Verdict::NotOffered), 1); // wrong credentials
    EXPECT_GT(report.booked, 0);
    EXPECT_EQ(report.takenBack, report.booked);
    EXPECT_EQ(report.balanceBefore, u"500.00"_s);
    EXPECT_EQ(report.balanceAfter, u"500.00"_s);
    EXPECT_EQ(balance(), 500);
}

// Numbers of cheques of the first run would make repeats of them.
TEST_F(RunTest, ASecondRunPassesToo)
{
    static_cast<void>(whenRun(usualSettings(url)));
    const Report report = whenRun(usualSettings(url));
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    EXPECT_EQ(balance(), 500);
}

TEST_F(RunTest, TheServicesOwnAuditFindsNothing)
{
    static_cast<void>(whenRun(usualSettings(url)));
    const auto audit
        = nlohmann::json::parse(emulator::httpGet(service.api("audit")).body.toStdString());
    EXPECT_EQ(audit["ok"], true) << audit;
}

TEST_F(RunTest, WithoutWriteItOnlyAsks)
{
    std::atomic<int> asked = 0;
    std::atomic<int> booked = 0;
    const WrongService relay(url, [&](const QByteArray &request, const Ask &ask) {
        ++asked;
        booked += request.contains("Fiscal") ? 1 : 0;
        return ask(request);
    });
    RunSettings settings = usualSettings(relay.url());
    settings.writes = false;
    const Report report = whenRun(settings);
    EXPECT_GT(asked, 10);
    EXPECT_EQ(booked, 0);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    EXPECT_EQ(resultOf(report, u"fiscal.taken"_s).verdict, Verdict::NotOffered);
    EXPECT_EQ(resultOf(report, u"fiscal.taken"_s).reason, u"needs --write"_s);
    EXPECT_EQ(resultOf(report, u"soft.taken"_s).verdict, Verdict::Passed);
    EXPECT_TRUE(emulator::httpGet(service.api("transactions")).body.startsWith("[]"));
}

TEST_F(RunTest, WhatTheCallerDoesNotBringIsNotOffered)
{
    RunSettings settings = usualSettings(url);
    settings.unknownCard.clear();
    settings.coupon.clear();
    settings.code.clear();
    const Report report = whenRun(settings);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    for (const QString &rule : {u"card.unknown"_s, u"coupons.applicable"_s, u"coupons.answered"_s,
             u"code.issued"_s, u"code.told"_s, u"authorisation"_s})
        EXPECT_EQ(resultOf(report, rule).verdict, Verdict::NotOffered) << qPrintable(rule);
    EXPECT_EQ(resultOf(report, u"card.unknown"_s).reason, u"needs --unknown-card"_s);
    // The service answers its codes, so that the flow goes on without.
    EXPECT_EQ(resultOf(report, u"code.wrong"_s).verdict, Verdict::Passed);
}

TEST_F(RunTest, AServiceThatAnswersNoCodeNeedsOneFromTheCaller)
{
    const WrongService silent(url, [](const QByteArray &request, const Ask &ask) {
        HttpMessage answer = ask(request);
        answer.body = message::without(answer.body, "VerificationCode");
        return answer;
    });
    RunSettings settings = usualSettings(silent.url());
    settings.code.clear();
    const Report report = whenRun(settings, u"code"_s);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    EXPECT_EQ(resultOf(report, u"code.wrong"_s).verdict, Verdict::NotOffered);
    EXPECT_TRUE(resultOf(report, u"code.wrong"_s).reason.contains(u"--code-command"));
}

TEST_F(RunTest, ACommandTellsTheCodeOfACheque)
{
    const QTemporaryDir folder;
    RunSettings settings = usualSettings(url);
    settings.code.clear();
    settings.codeCommand
        = u"echo $KORVEL_CARD $KORVEL_CHEQUE >> %1/asked; echo 4829"_s.arg(folder.path());
    const Report report = whenRun(settings, u"code"_s);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    EXPECT_EQ(resultOf(report, u"code.told"_s).verdict, Verdict::Passed);
    QFile asked(folder.filePath(u"asked"_s));
    ASSERT_TRUE(asked.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = asked.readAll().trimmed().split('\n');
    EXPECT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.first().startsWith("2900000000017 1")) << lines.first().constData();
    EXPECT_NE(lines.first(), lines.last());
}

TEST_F(RunTest, ACardWithoutPointsSpendsNone)
{
    RunSettings settings = usualSettings(url);
    settings.card = u"2900000000024"_s;
    const Report report = whenRun(settings, u"spend"_s);
    EXPECT_EQ(resultOf(report, u"points.booked"_s).verdict, Verdict::NotOffered);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
}

TEST_F(RunTest, FindsOutWhatBecomesOfARepeat)
{
    EXPECT_EQ(findingOf(usualSettings(url)), u"asBefore"_s);
    EXPECT_EQ(findingAbout("RepeatRefused"), u"refuses"_s);
    EXPECT_EQ(findingAbout("RepeatBooked"), u"booksTwice"_s);
    EXPECT_EQ(findingAbout("RepeatTakenForAnother"), u"booksTwice"_s);
}

TEST_F(RunTest, FindsOutThatARepeatIsAnsweredOtherwise)
{
    const auto change
        = [count = std::make_shared<int>(0)](const QByteArray &request, const Ask &ask) {
              HttpMessage answer = ask(request);
              if (message::isFiscal(request) && ++*count == 2)
                  answer.body = message::with(answer.body, "CashierMessage", "once more");
              return answer;
          };
    EXPECT_EQ(findingBehind(change), u"countedOnce"_s);
}

// Nothing moves on a card that a till has made up.
TEST_F(RunTest, FindsNothingOutWhereNoBalanceMoves)
{
    RunSettings settings = usualSettings(url);
    settings.card = u"3750000000012"_s;
    EXPECT_EQ(findingOf(settings), u"unknown"_s);
}

TEST_F(RunTest, ARegistrationWhoseAnswerIsLostIsTakenBack)
{
    std::atomic<int> count = 0;
    const WrongService losing(url, [&count](const QByteArray &request, const Ask &ask) {
        const HttpMessage answer = ask(request);
        return message::isFiscal(request) && ++count == 1 ? HttpMessage{{}, 0} : answer;
    });
    const Report report = whenRun(usualSettings(losing.url()), u"registration"_s);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "answer.comes");
    EXPECT_TRUE(report.isClean());
    EXPECT_EQ(report.takenBack, 1);
    EXPECT_EQ(balance(), 500);
    EXPECT_EQ(resultOf(report, u"fiscal.taken"_s).verdict, Verdict::NotReached);
}

// It is booked when it is asked for again, and then taken back.
TEST_F(RunTest, ARegistrationThatWasLostItselfLeavesNothing)
{
    std::atomic<int> count = 0;
    const WrongService losing(url, [&count](const QByteArray &request, const Ask &ask) {
        return message::isFiscal(request) && ++count == 1 ? HttpMessage{{}, 0} : ask(request);
    });
    const Report report = whenRun(usualSettings(losing.url()), u"registration"_s);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "answer.comes");
    EXPECT_EQ(report.takenBack, 1);
    EXPECT_TRUE(report.isClean());
    EXPECT_EQ(balance(), 500);
}

// A fault says that nothing was taken.
TEST_F(RunTest, ARegistrationThatIsNotTakenLeavesNothing)
{
    RunSettings settings = usualSettings(url);
    settings.articles = {{u"1001"_s, 1e13}};
    const Report report = whenRun(settings, u"registration"_s);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "answer.status");
    EXPECT_TRUE(report.leftOver.isEmpty());
    EXPECT_TRUE(report.isClean());
}

TEST_F(RunTest, WhatNothingBringsBackIsNamed)
{
    const WrongService keeping(url, [](const QByteArray &request, const Ask &ask) {
        return message::isRollback(request) || message::isReturn(request) ? HttpMessage{{}, 503}
                                                                          : ask(request);
    });
    const Report report = whenRun(usualSettings(keeping.url()), u"registration"_s);
    ASSERT_EQ(report.leftOver.size(), 1);
    EXPECT_FALSE(report.isClean());
    EXPECT_EQ(report.leftOver.first().operation, u"Sale"_s);
    EXPECT_EQ(report.leftOver.first().card, u"2900000000017"_s);
    EXPECT_EQ(report.leftOver.first().transaction, u"0000000001"_s);
    EXPECT_FALSE(report.leftOver.first().number.isEmpty());
    EXPECT_TRUE(report.leftOver.first().reason.contains(u"503"));
    EXPECT_NE(report.balanceAfter, report.balanceBefore);
}

TEST_F(RunTest, ALostAnswerThatIsLostAgainIsNamed)
{
    const WrongService losing(url, [](const QByteArray &request, const Ask &ask) {
        const HttpMessage answer = ask(request);
        return message::isFiscal(request) ? HttpMessage{{}, 0} : answer;
    });
    const Report report = whenRun(usualSettings(losing.url()), u"registration"_s);
    ASSERT_EQ(report.leftOver.size(), 1);
    EXPECT_TRUE(report.leftOver.first().transaction.isEmpty());
    EXPECT_FALSE(report.isClean());
}

TEST_F(RunTest, AStopTakesBackWhatWasBooked)
{
    std::atomic<bool> isBooked = false;
    const WrongService relay(url, [&](const QByteArray &request, const Ask &ask) {
        isBooked = isBooked || message::isFiscal(request);
        return ask(request);
    });
    RunSettings settings = usualSettings(relay.url());
    settings.isStopWanted = [&] { return isBooked.load(); };
    const Report report = whenRun(settings);
    EXPECT_TRUE(report.wasStopped);
    EXPECT_EQ(report.booked, 1);
    EXPECT_TRUE(report.isClean());
    EXPECT_EQ(balance(), 500);
    EXPECT_EQ(resultOf(report, u"fiscal.moved"_s).verdict, Verdict::NotReached);
    EXPECT_EQ(resultOf(report, u"repeat.once"_s).verdict, Verdict::NotReached);
}

TEST_F(RunTest, APageInsteadOfAnAnswerFitsNothing)
{
    const WrongService page(url,
        [](const QByteArray &, const Ask &) { return HttpMessage{"<html><p>Welcome</html>"}; });
    const Report report = whenRun(usualSettings(page.url()), u"balance"_s);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "answer.schema");
    EXPECT_EQ(resultOf(report, u"balance.known"_s).verdict, Verdict::NotReached);
    EXPECT_TRUE(resultOf(report, u"answer.schema"_s).failures.first().answer.contains("Welcome"));
}

TEST_F(RunTest, AFlowThatBooksUnannouncedIsNotFollowed)
{
    Flow flow = acceptance.flows.last();
    ASSERT_TRUE(flow.writes);
    flow.writes = false;
    EXPECT_THROW(static_cast<void>(Runner(usualSettings(url)).run({flow})), till::CannotDo);
    EXPECT_TRUE(emulator::httpGet(service.api("transactions")).body.startsWith("[]"));
}

TEST_F(RunTest, AMistakeInAFlowTakesBackWhatWasBooked)
{
    Flow flow = acceptance.flows.last();
    flow.steps[2].values = {{u"TransactionReference.TransactionID"_s, u"sale."_s + u"1 +"_s}};
    EXPECT_THROW(static_cast<void>(Runner(usualSettings(url)).run({flow})), till::CannotDo);
    EXPECT_EQ(balance(), 500);
}

TEST_F(RunTest, TheSendersNamesGoIntoEveryRequest)
{
    std::atomic<int> asked = 0;
    std::atomic<int> named = 0;
    const WrongService relay(url, [&](const QByteArray &request, const Ask &ask) {
        using message::valueOf;
        const bool isRequest = request.contains("<request>");
        const bool isOurs = valueOf(request, "BusinessUnit") == "Shop 7"
            && valueOf(request, "POS") == "7-1" && valueOf(request, "Organization") == "Company"
            && valueOf(request, "orgName") == "Chain";
        const bool isReferring = message::isReturn(request);
        asked += isRequest ? 1 : 0;
        named += isOurs && (!isReferring || valueOf(request, "POS", 1) == "7-1") ? 1 : 0;
        return ask(request);
    });
    RunSettings settings = usualSettings(relay.url());
    settings.sender = {u"7-1"_s, u"Shop 7"_s, u"Company"_s, u"Chain"_s};
    EXPECT_EQ(failedRules(whenRun(settings)).join(u' ').toStdString(), "");
    EXPECT_GT(asked, 50);
    EXPECT_EQ(named, asked);
}

TEST_F(RunTest, ArticlesOfTheCallerAreSold)
{
    RunSettings settings = usualSettings(url);
    settings.articles = articlesOf({u"1002=89.90"_s, u"1005"_s});
    const Report report = whenRun(settings);
    EXPECT_EQ(failedRules(report).join(u' ').toStdString(), "");
    EXPECT_TRUE(emulator::httpGet(service.api("transactions")).body.contains("1002"));
}

} // namespace
