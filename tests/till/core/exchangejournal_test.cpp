// What the journal keeps of the current document's exchanges.

#include "host/framework/session.h"
#include "host/storage/statefolder.h"
#include "tests/till/support/tillfixture.h"
#include "till/core/exchangejournal.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

class ExchangeJournalTest : public TillFixture
{
public:
    static QByteArray request(const QByteArray &number, const QByteArray &type = "Fiscal")
    {
        return "<r><ChequeRequest ChequeType=\"" + type
            + "\"><OperationType>Sale</OperationType><Card><CardNumber>2900000000017</CardNumber>"
              "</Card><Number>"
            + number
            + "</Number><SummDiscounted>10.50</SummDiscounted><PaidByBonus>3</PaidByBonus>"
              "</ChequeRequest></r>";
    }
    static QByteArray answer(const QByteArray &code)
    {
        return "<r><ChequeResponse><ReturnCode>0</ReturnCode><Message>code " + code
            + "</Message><TransactionID>77</TransactionID><WriteoffBonus>3</WriteoffBonus>"
              "<VerificationCode>"
            + code + "</VerificationCode></ChequeResponse></r>";
    }
    [[nodiscard]] QByteArray openNumber() const { return till->document()->getNumber().toUtf8(); }
    static QList<QJsonObject> exchangeLines()
    {
        QFile file(Singleton<StateFolder>::instance()->journal());
        // None was written: no lines.
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QList<QJsonObject> lines;
        for (const QByteArray &line : file.readAll().split('\n'))
            if (const auto object = QJsonDocument::fromJson(line).object();
                object.value(u"kind"_s) == u"exchange"_s)
                lines.append(object);
        return lines;
    }
};

TEST_F(ExchangeJournalTest, TellsWhatWasAskedAndAnswered)
{
    givenSaleOf({u"1001"_s});
    till::journalExchange(
        {{}, std::chrono::milliseconds(12), request(openNumber()), answer({}), 0, {}});
    const auto lines = exchangeLines();
    ASSERT_EQ(lines.size(), 1);
    const QJsonObject line = lines.constFirst();
    EXPECT_EQ(line.value(u"correlationId"_s), till->document()->getCorrelationId());
    EXPECT_EQ(line.value(u"operation"_s), u"register"_s);
    EXPECT_EQ(line.value(u"card"_s), u"2900000000017"_s);
    EXPECT_EQ(line.value(u"sum"_s), 10.5);
    EXPECT_EQ(line.value(u"points"_s), 3);
    EXPECT_EQ(line.value(u"milliseconds"_s), 12);
    EXPECT_EQ(line.value(u"error"_s), 0);
    EXPECT_EQ(line.value(u"returnCode"_s), 0);
    EXPECT_EQ(line.value(u"transaction"_s), u"77"_s);
    EXPECT_EQ(line.value(u"spent"_s), 3);
    EXPECT_FALSE(line.contains(u"codeSent"_s));
}

TEST_F(ExchangeJournalTest, KeepsNoVerificationCode)
{
    givenSaleOf({u"1001"_s});
    till::journalExchange({{}, {}, request(openNumber(), "Soft"), answer("48291"), 0, {}});
    const QJsonObject line = exchangeLines().constLast();
    EXPECT_EQ(line.value(u"operation"_s), u"calculate"_s);
    EXPECT_TRUE(line.value(u"codeSent"_s).toBool());
    EXPECT_EQ(line.value(u"message"_s), u"code ********"_s);
    EXPECT_FALSE(QJsonDocument(line).toJson().contains("48291"));
}

TEST_F(ExchangeJournalTest, AFailureHasItsReasonAndNothingOfTheAnswer)
{
    givenSaleOf({u"1001"_s});
    till::journalExchange(
        {{}, {}, request(openNumber()), answer({}), 500, {u"id"_s, u"Ошибка сервера"_s}});
    const QJsonObject line = exchangeLines().constLast();
    EXPECT_EQ(line.value(u"error"_s), 500);
    EXPECT_EQ(line.value(u"reason"_s), u"Ошибка сервера"_s);
    EXPECT_FALSE(line.contains(u"returnCode"_s));
}

TEST_F(ExchangeJournalTest, LeavesOutWhatTheQueueSends)
{
    givenSaleOf({u"1001"_s});
    till::journalExchange({{}, {}, request("999"), answer({}), 0, {}});
    Singleton<Session>::instance()->setCurrentDocument({});
    till::journalExchange({{}, {}, request("999"), answer({}), 0, {}});
    EXPECT_TRUE(exchangeLines().isEmpty());
}

} // namespace
