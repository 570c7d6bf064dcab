#include "host/net/restclient.h"
#include "till/check/answerschema.h"
#include "till/check/service.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace till::check;

namespace {

QByteArray sample(const QString &name)
{
    QFile file(QStringLiteral(PROTOCOL_FOLDER "/samples/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QString found(int error, const QByteArray &body, bool hasCard)
{
    Exchanged exchanged;
    exchanged.error = error;
    exchanged.body = body;
    QStringList ids;
    for (const Finding &finding : judgeAnswer(exchanged, hasCard)) {
        ids.append(nameOf(finding.severity) + u' ' + finding.what.id());
        EXPECT_TRUE(finding.severity == Severity::Ok || !finding.remedy.isEmpty());
    }
    return ids.join(u"; "_s);
}

TEST(ServiceAnswer, IsJudgedByItsStatus)
{
    struct Row
    {
        int error;
        QString found;
    };
    const QList<Row> rows{{401, u"error checkUnauthorised"_s}, {403, u"error checkUnauthorised"_s},
        {404, u"error checkPathWrong"_s}, {405, u"error checkPathWrong"_s},
        {407, u"error checkProxyUnauthorised"_s}, {502, u"error checkUnavailable"_s},
        {503, u"error checkUnavailable"_s}, {504, u"error checkUnavailable"_s},
        {RestClient::TimedOut, u"error checkExchangeFailed"_s},
        {RestClient::AnswerCut, u"error checkExchangeFailed"_s}, {302, u"error checkNotSoap"_s},
        {500, u"error checkNotSoap"_s}, {505, u"error checkNotSoap"_s}};
    for (const Row &row : rows)
        for (const bool hasCard : {true, false})
            EXPECT_EQ(found(row.error, "<html/>", hasCard), row.found) << row.error;
}

TEST(ServiceAnswer, ToACardIsJudgedByTheSchemaAndItsCode)
{
    struct Row
    {
        int error;
        QByteArray body;
        QString found;
    };
    const QByteArray balance = sample(u"balance-answer.xml"_s);
    QByteArray invalid = balance;
    invalid.replace("<CardStatus>2", "<CardStatus>two");
    QByteArray entity = balance;
    entity.replace("<soap:Envelope", "<!DOCTYPE x [<!ENTITY a 'b'>]><soap:Envelope");
    QByteArray negative = balance;
    negative.replace("<ReturnCode>0<", "<ReturnCode>-5<");
    ASSERT_NE(negative, balance);
    const QList<Row> rows{{0, balance, u"ok checkBalance"_s}, {0, negative, u"ok checkBalance"_s},
        {0, sample(u"fault.xml"_s), u"error checkFault"_s},
        {0, sample(u"balance-request.xml"_s), u"error checkNotSoap"_s},
        {0, sample(u"refusal-answer.xml"_s), u"warning checkCardRefused"_s},
        {500, sample(u"fault.xml"_s), u"error checkRequestRefused"_s},
        {0, invalid, u"error checkAnswerInvalid"_s}, {0, "ok", u"error checkNotSoap"_s},
        {0, "", u"error checkNotSoap"_s}, {0, "<a/>", u"error checkNotSoap"_s},
        {0, balance.left(balance.size() / 2), u"error checkNotSoap"_s},
        {0, entity, u"error checkNotSoap"_s}};
    for (const Row &row : rows)
        EXPECT_EQ(found(row.error, row.body, true), row.found) << row.body.constData();
}

TEST(ServiceAnswer, ToNothingShowsThatTheServiceIsThere)
{
    const QString there = u"ok checkAccepted; note checkNoCard"_s;
    EXPECT_EQ(found(500, sample(u"fault.xml"_s), false), there);
    EXPECT_EQ(found(0, sample(u"refusal-answer.xml"_s), false), there);
    EXPECT_EQ(found(0, "ok", false), u"error checkNotSoap"_s);
}

TEST(ServiceAnswer, IsReadWithWhatIsWrongInIt)
{
    const AnswerSchema schema;
    QByteArray invalid = sample(u"balance-answer.xml"_s);
    invalid.replace("<CardStatus>2", "<CardStatus>two");
    const QString complaint = schema.read(invalid).complaint;
    EXPECT_TRUE(complaint.startsWith(u"line 11: Element 'CardStatus'"_s)) << qPrintable(complaint);

    const ReadAnswer refusal = schema.read(sample(u"refusal-answer.xml"_s));
    EXPECT_EQ(refusal.complaint, QString());
    EXPECT_EQ(refusal.returnCode, 80241);
    EXPECT_EQ(refusal.message, u"Карта не найдена"_s);
    EXPECT_FALSE(schema.read(sample(u"fault.xml"_s)).returnCode);
    EXPECT_FALSE(schema.read(sample(u"fault.xml"_s)).message.isEmpty());
}

TEST(ServiceAnswer, TellsHowFarTheClocksAreApart)
{
    const QDateTime noon(QDate(2024, 3, 5), QTime(12, 0), Qt::UTC);
    const auto apart = [&noon](const QDateTime &date) {
        Exchanged exchanged;
        exchanged.date = date;
        exchanged.received = noon;
        const Finding finding = judgeClock(exchanged).value(0);
        return QString(nameOf(finding.severity) + u' ' + finding.what.ui());
    };
    EXPECT_EQ(apart(noon), u"ok the clock agrees with the service's, difference 0 s"_s);
    EXPECT_EQ(
        apart(noon.addSecs(-120)), u"ok the clock agrees with the service's, difference 120 s"_s);
    EXPECT_EQ(apart(noon.addSecs(-121)), u"warning the clock is 121 s ahead of the service's"_s);
    EXPECT_EQ(apart(noon.addSecs(121)), u"warning the clock is 121 s behind the service's"_s);
    EXPECT_EQ(
        apart({}), u"note the service does not tell its time, the clocks were not compared"_s);
}

TEST(ServiceAnswer, TellsHowLongACashierWouldWait)
{
    const auto severity = [](std::chrono::milliseconds took) {
        Exchanged exchanged;
        exchanged.took = took;
        return judgeTime(exchanged, 10s).value(0).severity;
    };
    EXPECT_EQ(severity(5000ms), Severity::Ok);
    EXPECT_EQ(severity(5001ms), Severity::Warning);
}

} // namespace
