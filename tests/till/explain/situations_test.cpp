// What becomes of points, in every way that it can: sold at a till, told in both languages.

#include "host/queue/messagestore.h"
#include "host/queue/queueoffice.h"
#include "tests/till/explain/explainfixture.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// A situation, and how its story ends.
struct Situation
{
    const char *name;
    std::function<void(ExplainFixture &)> course;
    QString asked; ///< number of the document
    std::string points; ///< where they are
    QString english; ///< stands in the conclusion
    QString russian;
    std::string next; ///< stands in the Russian advice
    QStringList steps; ///< all of these words, in this order
    std::map<std::string, double> amounts; ///< of the conclusion
};

std::ostream &operator<<(std::ostream &stream, const Situation &situation)
{
    return stream << situation.name;
}

const QByteArray calculated = "card 2900000000017\nadd 1004\ntotal\n";

std::function<void(ExplainFixture &)> sold(const QByteArray &script)
{
    return [script](ExplainFixture &till) { till.whenSold(script); };
}

// Without its service a till closes what it has calculated; the answer of each try is lost.
void sellUnanswered(ExplainFixture &till)
{
    till.givenSettings("[Queue]\ndeliverAfterClose=false\n");
    till.whenSold(calculated + "fault fiscal lose\nclose\n");
}

void sellOffline(ExplainFixture &till)
{
    till.givenSettings("[Queue]\ndeliverAfterClose=false\n");
    till.whenSold("fault refuse 1\ncard 2900000000017\nadd 1004\ntotal\nclose\n");
}

// A till that was killed while it registered a cheque: what it left in the open document.
void beginRegistration(const QString &fileName)
{
    QFile file(fileName);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QJsonObject document = QJsonDocument::fromJson(file.readAll()).object();
    file.close();
    document.insert(u"registrationBegun"_s, true);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(document).toJson());
}

const QList<Situation> &situations()
{
    static const QList<Situation> all{
        {"BookedAtOnce", sold(calculated + "points 60\nclose\n"), u"1"_s, "booked",
            u"The loyalty service booked the document at once"_s,
            u"Система лояльности провела документ сразу"_s, "Ничего делать не нужно",
            {u"opened"_s, u"balanceAgreed"_s, u"calculateAgreed"_s, u"registerAgreed"_s,
                u"closed"_s},
            {{"sum", 339.0}, {"spent", 60.0}, {"earned", 16.95}, {"balance", 456.95}}},
        {"PaidWithACode",
            [](ExplainFixture &till) {
                till.givenSettings(
                    "[KorvelLoyaltyOnline]\nuseConfirmation=true\nnoConfirmationBonusLimit=10\n");
                till.whenSold(calculated + "answer text 4829\npoints 60\nclose\n");
            },
            u"1"_s, "booked", u"sent the customer a verification code"_s,
            u"выслала покупателю код подтверждения"_s, "Ничего делать не нужно",
            {u"calculateAgreed"_s, u"calculateAgreed"_s, u"registerAgreed"_s, u"closed"_s},
            {{"spent", 60.0}, {"balance", 456.95}}},
        {"SomebodyElseAnswers", sold(calculated + "fault fiscal wrong-xml\nclose\n"), u"1"_s,
            "unknown", u"Not the loyalty service answered"_s, u"ответила не система лояльности"_s,
            "Проверьте KorvelLoyaltyOnline:url", {u"registerUnanswered"_s, u"closed"_s}, {}},
        {"Waiting", sellOffline, u"1"_s, "waiting",
            u"was closed without a connection to the loyalty service and waits"_s,
            u"закрыт без связи с системой лояльности и ждёт"_s, "korvel-till queue deliver",
            {u"opened"_s, u"balanceUnanswered"_s, u"offline"_s, u"closed"_s, u"enqueued"_s},
            {{"sum", 399.0}, {"spent", 0.0}}},
        {"TriedInVain",
            [](ExplainFixture &till) {
                sellOffline(till);
                till.whenSold("fault all status 503 2\ndeliver\ndeliver\n");
            },
            u"1"_s, "waiting", u"attempts to send it: 2"_s, u"попыток отправить: 2"_s,
            "korvel-till queue deliver", {u"enqueued"_s, u"attemptFailed"_s, u"attemptFailed"_s},
            {{"sum", 399.0}}},
        {"WrongPassword",
            [](ExplainFixture &till) {
                sellOffline(till);
                till.whenSold("fault all unauthorised\ndeliver\n");
            },
            u"1"_s, "waiting", u"attempts to send it: 1"_s, u"попыток отправить: 1"_s,
            "korvel-till queue reauthorise", {u"enqueued"_s, u"attemptFailed"_s}, {}},
        {"DeliveredLater",
            [](ExplainFixture &till) {
                sellOffline(till);
                till.whenSold("deliver\n");
            },
            u"1"_s, "booked", u"waited in the queue and was delivered"_s,
            u"ждал в очереди и доставлен"_s, "Ничего делать не нужно",
            {u"closed"_s, u"enqueued"_s, u"delivered"_s},
            {{"sum", 399.0}, {"earned", 19.95}, {"balance", 519.95}}},
        {"Parked",
            [](ExplainFixture &till) {
                sellOffline(till);
                till.whenStarted(
                    {u"queue"_s, u"set-aside"_s, u"--all"_s, u"--state"_s, till.stateFolder()});
            },
            u"1"_s, "parked", u"is parked and not sent until a person decides"_s,
            u"отложено и не отправляется, пока человек не решит"_s, "korvel-till queue retry",
            {u"enqueued"_s, u"parked"_s}, {{"sum", 399.0}}},
        {"MovedAway",
            [](ExplainFixture &till) {
                sellOffline(till);
                till.whenStarted({u"queue"_s, u"export"_s, till.path(u"away.queue"_s), u"--state"_s,
                    till.stateFolder()});
            },
            u"1"_s, "waiting", u"was moved to the file"_s, u"перенесено в файл"_s,
            "korvel-till queue import", {u"enqueued"_s, u"moved"_s}, {}},
        {"RefusedForGood",
            [](ExplainFixture &till) {
                sellOffline(till);
                till.whenSold("fault fiscal code 80241\ndeliver\n");
            },
            u"1"_s, "refused", u"later the loyalty service refused to book it"_s,
            u"потом отказалась его провести"_s, "korvel-till queue show",
            {u"enqueued"_s, u"refused"_s}, {{"sum", 399.0}}},
        {"AnswerLost", sellUnanswered, u"1"_s, "waiting", u"does not count it twice"_s,
            u"второй раз не посчитает"_s, "korvel-till queue deliver",
            {u"calculateAgreed"_s, u"registerUnanswered"_s, u"offline"_s, u"closed"_s,
                u"enqueued"_s},
            {{"sum", 399.0}}},
        {"AnswerLostThenDelivered",
            [](ExplainFixture &till) {
                sellUnanswered(till);
                till.whenSold("deliver\n");
            },
            u"1"_s, "booked", u"waited in the queue and was delivered"_s,
            u"ждал в очереди и доставлен"_s, "Ничего делать не нужно",
            {u"registerUnanswered"_s, u"enqueued"_s, u"delivered"_s}, {{"balance", 519.95}}},
        {"RefusedWhileOpen", sold(calculated + "fault fiscal code 80241\nclose\n"), u"1"_s,
            "refused", u"the document is still open"_s, u"документ ещё открыт"_s,
            "закройте документ ещё раз",
            {u"calculateAgreed"_s, u"registerRefused"_s, u"shownToCashier"_s}, {}},
        {"GrantedThenRefusedThenCancelled",
            sold(calculated + "points 60\nfault fiscal code 80241\nclose\ncancel\n"), u"1"_s,
            "withdrawn", u"was neither spent nor earned"_s, u"не списано и не начислено"_s,
            "Ничего делать не нужно", {u"calculateAgreed"_s, u"registerRefused"_s, u"cancelled"_s},
            {}},
        {"Cancelled", sold(calculated + "points 60\ncancel\n"), u"1"_s, "withdrawn",
            u"cancelled at the till before it was booked"_s, u"отменён на кассе до проведения"_s,
            "Ничего делать не нужно", {u"opened"_s, u"calculateAgreed"_s, u"cancelled"_s}, {}},
        {"KilledWhileRegistering",
            [](ExplainFixture &till) {
                till.whenSold(calculated);
                beginRegistration(till.path(u"state/document.json"_s));
            },
            u"1"_s, "unknown", u"while the document was being booked"_s,
            u"когда документ проводился"_s, "Закройте документ на кассе", {u"calculateAgreed"_s},
            {}},
        {"RolledBack",
            [](ExplainFixture &till) {
                till.whenSold(calculated);
                beginRegistration(till.path(u"state/document.json"_s));
                till.whenSold("cancel\n");
            },
            u"1"_s, "withdrawn", u"took the booking back"_s, u"система лояльности отменила его"_s,
            "Ничего делать не нужно", {u"registerAgreed"_s, u"rollbackAgreed"_s, u"cancelled"_s},
            {{"balance", 500.0}}},
        {"Returned", sold(calculated + "points 60\nclose\nreturn 1\nclose\n"), u"1"_s, "booked",
            u"returns of it that were closed later: 1"_s, u"по нему закрыты возвраты: 1"_s,
            "Ничего делать не нужно", {u"registerAgreed"_s, u"closed"_s, u"returned"_s}, {}},
        {"ReturnedInParts",
            sold("card 2900000000017\nadd 1004 2\ntotal\npoints 100\nclose\n"
                 "return 1\nquantity 1 1\nclose\nreturn 1\nquantity 1 1\nclose\n"),
            u"1"_s, "booked", u"returns of it that were closed later: 2"_s,
            u"по нему закрыты возвраты: 2"_s, "Ничего делать не нужно",
            {u"registerAgreed"_s, u"closed"_s, u"returned"_s, u"returned"_s}, {}},
        {"AReturn", sold(calculated + "points 60\nclose\nreturn 1\nclose\n"), u"2"_s, "booked",
            u"booked the document at once"_s, u"провела документ сразу"_s, "Ничего делать не нужно",
            {u"opened"_s, u"returnAgreed"_s, u"closed"_s},
            {{"sum", 339.0}, {"takenBack", 16.95}, {"givenBack", 60.0}, {"balance", 500.0}}},
        {"AReturnOffline",
            [](ExplainFixture &till) {
                till.givenSettings("[Queue]\ndeliverAfterClose=false\n");
                till.whenSold(calculated + "close\nreturn 1\nfault return reset\nclose\n");
            },
            u"2"_s, "waiting", u"The request to book the document had no answer"_s,
            u"На запрос провести документ ответа не было"_s, "korvel-till queue deliver",
            {u"opened"_s, u"returnUnanswered"_s, u"enqueued"_s}, {}},
        {"NoCard", sold("add 1001\nclose\n"), u"1"_s, "neverEarned",
            u"No customer's card was presented"_s, u"Карта покупателя не была предъявлена"_s,
            "Начислить баллы за него может только владелец", {u"opened"_s, u"closed"_s},
            {{"sum", 45.9}}},
        {"TechnicalCard", sold("add 1001\ntotal\nclose\n"), u"1"_s, "neverEarned",
            u"sold with a technical card"_s, u"с технической картой"_s,
            "Начислить баллы за него может только владелец", {u"opened"_s, u"registerAgreed"_s},
            {{"sum", 41.31}}},
        {"Open", sold(calculated), u"1"_s, "open", u"it is booked when it is closed"_s,
            u"проводится он при закрытии"_s, "Закройте документ на кассе",
            {u"opened"_s, u"balanceAgreed"_s, u"calculateAgreed"_s}, {{"sum", 399.0}}},
    };
    return all;
}

class SituationsTest : public ExplainFixture, public testing::WithParamInterface<Situation>
{
public:
    static QStringList wordsOf(const nlohmann::json &story)
    {
        QStringList words;
        for (const auto &step : story.at("steps"))
            words.append(QString::fromStdString(step.at("what").get<std::string>()));
        return words;
    }
    // All of them in this order; others may stand between.
    static void thenStandInOrder(const QStringList &wanted, const QStringList &words)
    {
        qsizetype place = 0;
        for (const QString &word : wanted) {
            place = words.indexOf(word, place) + 1;
            ASSERT_GT(place, 0) << qPrintable(word) << " is missing in "
                                << qPrintable(words.join(u' '));
        }
    }
};

TEST_P(SituationsTest, IsToldAsItWas)
{
    const Situation &situation = GetParam();
    situation.course(*this);
    const auto object = whenAskedForJson({situation.asked, u"--no-service"_s});
    ASSERT_EQ(object.at("stories").size(), 1U) << object.dump(1);
    const auto &story = object.at("stories").at(0);
    const auto &conclusion = story.at("conclusion");
    EXPECT_EQ(conclusion.at("points"), situation.points) << story.dump(1);
    EXPECT_TRUE(conclusion.at("next").get<std::string>().find(situation.next) != std::string::npos)
        << conclusion.dump(1);
    thenStandInOrder(situation.steps, wordsOf(story));
    for (const auto &[name, amount] : situation.amounts) {
        ASSERT_TRUE(conclusion.at("amounts").contains(name)) << name << conclusion.dump(1);
        EXPECT_NEAR(conclusion.at("amounts").at(name).get<double>(), amount, 0.005) << name;
    }
    EXPECT_TRUE(whenAsked({situation.asked, u"--no-service"_s}, "en").contains(situation.english))
        << output.data();
    EXPECT_TRUE(whenAsked({situation.asked, u"--no-service"_s}, "ru").contains(situation.russian))
        << output.data();
    EXPECT_EQ(status, 0);
}

TEST_P(SituationsTest, IsToldFromAnArchiveTheSame)
{
    const Situation &situation = GetParam();
    situation.course(*this);
    const auto fromFolder = whenAskedForJson({situation.asked, u"--no-service"_s});
    const QString archive = whenBundled();
    ASSERT_EQ(status, 0) << errors.data();
    const auto fromArchive = whenAskedForJson({situation.asked, u"--bundle"_s, archive});
    EXPECT_EQ(status, 0) << errors.data();
    ASSERT_TRUE(fromArchive.contains("stories")) << errors.data();
    EXPECT_EQ(fromFolder.at("stories"), fromArchive.at("stories"));
}

INSTANTIATE_TEST_SUITE_P(All, SituationsTest, testing::ValuesIn(situations()),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
