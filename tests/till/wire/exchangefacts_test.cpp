// What the till reads from an exchange, by the samples of the protocol.

#include "till/wire/exchangefacts.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using till::ServiceOperation;

namespace {

QByteArray sample(const QString &name)
{
    QFile file(QStringLiteral(SAMPLES "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(name);
    return file.readAll();
}

struct RequestRow
{
    QString name;
    ServiceOperation operation;
    QString number;
    std::optional<double> sum;
    std::optional<double> points;
};

TEST(ExchangeFactsTest, RequestsAreRead)
{
    const QList<RequestRow> rows{
        {u"balance"_s, ServiceOperation::Balance, {}, {}, {}},
        {u"sale-soft"_s, ServiceOperation::Calculate, u"17"_s, 815.3, 815.3},
        {u"sale-points"_s, ServiceOperation::Calculate, u"17"_s, 742.06, 100.0},
        {u"sale-fiscal"_s, ServiceOperation::Register, u"17"_s, 742.06, 100.0},
        {u"return"_s, ServiceOperation::Return, u"18"_s, 41.31, {}},
        {u"rollback"_s, ServiceOperation::Rollback, {}, {}, {}},
    };
    for (const RequestRow &row : rows) {
        SCOPED_TRACE(qPrintable(row.name));
        const auto facts = till::requestFacts(sample(row.name + u"-request.xml"));
        EXPECT_EQ(facts.operation, row.operation);
        EXPECT_EQ(facts.card, u"2900000000017"_s);
        EXPECT_EQ(facts.number, row.number);
        EXPECT_EQ(facts.sum, row.sum);
        EXPECT_EQ(facts.points, row.points);
    }
}

TEST(ExchangeFactsTest, AnAnswerIsReadForTheWholeDocument)
{
    const auto facts = till::answerFacts(sample(u"return-answer.xml"_s));
    EXPECT_EQ(facts.returnCode, 0);
    EXPECT_EQ(facts.transaction, u"0000000002"_s);
    EXPECT_EQ(facts.available, 0.0);
    EXPECT_EQ(facts.earned, 5.29);
    EXPECT_EQ(facts.charged, 5.29);
    EXPECT_EQ(facts.spent, 1.7);
    EXPECT_EQ(facts.balance, 435.7);
    EXPECT_TRUE(facts.verificationCode.isEmpty());
}

TEST(ExchangeFactsTest, StatusPointsAreNotEarned)
{
    const auto facts = till::answerFacts(sample(u"points-refused-answer.xml"_s));
    EXPECT_EQ(facts.returnCode, 81400);
    EXPECT_EQ(facts.message, u"Недостаточно баллов"_s);
    EXPECT_EQ(facts.available, 371.03);
    ASSERT_TRUE(facts.earned);
    EXPECT_NEAR(*facts.earned, 37.10, 0.005);
    EXPECT_EQ(facts.charged, 44.52);
}

TEST(ExchangeFactsTest, TheCodeOfTheCustomerIsKnownAsOne)
{
    const auto facts = till::answerFacts(sample(u"sale-points-answer.xml"_s));
    EXPECT_EQ(facts.verificationCode.size(), 4) << qPrintable(facts.verificationCode);
}

TEST(ExchangeFactsTest, WhatIsNoMessageHasNoFacts)
{
    for (const QByteArray &text : {QByteArray(), QByteArray("<html><ReturnCode>0</ReturnCode>"),
             QByteArray("not XML"), QByteArray("<a><BalanceResponse/></a>")}) {
        SCOPED_TRACE(text.constData());
        const auto answer = till::answerFacts(text);
        EXPECT_FALSE(answer.returnCode);
        EXPECT_FALSE(answer.balance);
        const auto request = till::requestFacts(text);
        EXPECT_EQ(request.operation, ServiceOperation::Unknown);
        EXPECT_TRUE(request.card.isEmpty());
    }
}

TEST(ExchangeFactsTest, WhatWasCutIsReadAsFarAsItGoes)
{
    const auto facts = till::answerFacts("<a><ChequeResponse><ReturnCode>0</ReturnCode><Summ>1");
    EXPECT_EQ(facts.returnCode, 0);
    EXPECT_FALSE(facts.balance);
}

TEST(ExchangeFactsTest, NamesOfOperationsComeBack)
{
    for (const char16_t *name : {u"balance", u"calculate", u"register", u"return", u"rollback"})
        EXPECT_EQ(till::operationName(till::operationNamed(QString::fromUtf16(name))),
            QString::fromUtf16(name));
    EXPECT_EQ(till::operationNamed(u"other"_s), ServiceOperation::Unknown);
    EXPECT_EQ(till::operationName(ServiceOperation::Unknown), u"unknown"_s);
}

} // namespace
