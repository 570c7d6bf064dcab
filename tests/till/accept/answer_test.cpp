// What is read of an answer of a service that may be anything.

#include "till/accept/answer.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace till::accept;

namespace {

QByteArray envelope(const QByteArray &payload)
{
    return "<s:Envelope "
           "xmlns:s=\"http://schemas.xmlsoap.org/soap/envelope/\"><s:Body><ProcessRequestResponse>"
           "<ProcessRequestResult>"
        + payload + "</ProcessRequestResult></ProcessRequestResponse></s:Body></s:Envelope>";
}

Answer answerWith(const QByteArray &body)
{
    Answer answer;
    answer.body = body;
    readBody(answer);
    return answer;
}

TEST(AcceptedAnswerTest, HasItsPayload)
{
    const Answer answer
        = answerWith(envelope("<BalanceResponse><ReturnCode>0</ReturnCode></BalanceResponse>"));
    EXPECT_EQ(answer.kind(), u"BalanceResponse"_s);
    EXPECT_EQ(linesOf(answer.payload), u"ReturnCode = 0"_s);
}

TEST(AcceptedAnswerTest, HasNoneWhereItIsNoXml)
{
    const Answer answer = answerWith("<html><p>404");
    EXPECT_TRUE(answer.document.isNull());
    EXPECT_EQ(answer.kind(), u"-"_s);
}

// A tree of that depth would take a minute to build, and more stack than there is to look through.
TEST(AcceptedAnswerTest, HasNoneWhereReadingItWouldTakeForever)
{
    constexpr int levels = 100'000;
    const Answer answer
        = answerWith(envelope("<BalanceResponse>" + QByteArray("<a>").repeated(levels)
            + QByteArray("</a>").repeated(levels) + "</BalanceResponse>"));
    EXPECT_TRUE(answer.document.isNull());
    EXPECT_TRUE(answer.payload.isNull());
}

} // namespace
