#include "tests/host/net/restclientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class RequestHeadersTest : public RestClientFixture
{
protected:
    QMap<QByteArray, QByteArray> sent(const QHash<QString, QString> &headers)
    {
        m_server.answer("ok");
        whenPosted(m_server.url(), "<a/>", headers);
        return m_server.requests().value(0).headers;
    }
};

TEST_F(RequestHeadersTest, SendsWhatTheCallerGives)
{
    const auto headers = sent({{u"Content-Type"_s, u"text/xml; charset=UTF-8"_s},
        {u"Authorization"_s, u"Basic Og=="_s}, {u"X-Shop"_s, u"Магазин"_s}});

    EXPECT_EQ(headers.value("content-type"), "text/xml; charset=UTF-8");
    EXPECT_EQ(headers.value("authorization"), "Basic Og==");
    EXPECT_EQ(headers.value("x-shop"), "Магазин");
    EXPECT_EQ(headers.value("content-length"), "4");
}

TEST_F(RequestHeadersTest, AddsNoContentTypeOfItsOwn)
{
    EXPECT_FALSE(sent({}).contains("content-type"));
}

TEST_F(RequestHeadersTest, SendsAHeaderWithoutAValue)
{
    EXPECT_TRUE(sent({{u"X-Empty"_s, u""_s}}).contains("x-empty"));
}

TEST_F(RequestHeadersTest, NoValueCanEndItsLine)
{
    const auto headers
        = sent({{u"X-Value"_s, QString(u"a\r\nX-Forged: b\x85\x7F\tc"_s + QChar(u'\0') + u'd')}});

    EXPECT_EQ(headers.value("x-value"), "aX-Forged: bcd");
    EXPECT_FALSE(headers.contains("x-forged"));
}

TEST_F(RequestHeadersTest, OfANameOnlyWhatMayStandThereIsKept)
{
    const auto headers
        = sent({{u"X-A\r\nX-Forged: b"_s, u"1"_s}, {u"\r\n:"_s, u"2"_s}, {u"Х"_s, u"3"_s}});

    EXPECT_EQ(headers.value("x-ax-forgedb"), "1");
    EXPECT_FALSE(headers.contains("x-forged"));
    EXPECT_FALSE(headers.contains(""));
}

TEST_F(RequestHeadersTest, TheExchangeItselfSaysWhereTheBodyEnds)
{
    const auto headers = sent({{u"CONTENT-LENGTH"_s, u"99"_s},
        {u"Transfer-Encoding"_s, u"chunked"_s}, {u"Expect"_s, u"100-continue"_s}});

    EXPECT_EQ(headers.value("content-length"), "4");
    EXPECT_FALSE(headers.contains("transfer-encoding"));
    EXPECT_FALSE(headers.contains("expect"));
}

} // namespace
