#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/serviceprocess.h"
#include "tests/emulator/support/xmltree.h"

#include <QDateTime>
#include <QUrl>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

constexpr qsizetype greatestBody = 16 * 1024 * 1024;

class LimitsTest : public testing::Test
{
protected:
    ~LimitsTest() override
    {
        EXPECT_EQ(httpPost(service.url(), sample("balance-request.xml")).status, 200)
            << "the service must live on";
    }

    std::string whenFaulted(const QByteArray &body)
    {
        const HttpOutcome outcome = httpPost(service.url(), body);
        EXPECT_EQ(outcome.status, 500);
        return firstValue(outcome.body, u"faultstring"_s).toStdString();
    }

    /// The sample with blanks behind it until it has this many bytes.
    static QByteArray padded(qsizetype bytes)
    {
        const QByteArray xml = sample("balance-request.xml");
        return xml + QByteArray(bytes - xml.size(), ' ');
    }

    QString whenAnsweredCode(const QByteArray &body)
    {
        const HttpOutcome outcome = httpPost(service.url(), body);
        EXPECT_EQ(outcome.status, 200);
        return firstValue(outcome.body, u"ReturnCode"_s);
    }

    /// The message with so many positions, numbered from `first`, all of the article 1001.
    static QByteArray withItems(const QByteArray &xml, int first, int count)
    {
        QByteArray items;
        for (int number = first; number < first + count; ++number)
            items += "<Item><PositionNumber>" + QByteArray::number(number)
                + "</PositionNumber><Article>1001</Article><Price>1.00</Price>"
                  "<Quantity>1.000</Quantity><Summ>1.00</Summ><Discount>0.00</Discount>"
                  "<SummDiscounted>1.00</SummDiscounted><Mcp>0.00</Mcp></Item>";
        const QByteArray end = "</Item>";
        const qsizetype start = xml.indexOf("<Item>");
        return xml.left(start) + items + xml.mid(xml.lastIndexOf(end) + end.size());
    }

    /// Sends bytes as they are and reads to the end.
    QByteArray whenSentRaw(const QByteArray &bytes)
    {
        const int descriptor = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(QUrl(service.url()).port()));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const auto *generic = reinterpret_cast<const sockaddr *>(&address);
        EXPECT_EQ(::connect(descriptor, generic, sizeof address), 0);
        EXPECT_EQ(::send(descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size()),
                      MSG_NOSIGNAL),
            bytes.size());
        ::shutdown(descriptor, SHUT_WR);
        QByteArray answer;
        char piece[4096];
        for (ssize_t count = 0; (count = ::recv(descriptor, piece, sizeof piece, 0)) > 0;)
            answer.append(piece, static_cast<qsizetype>(count));
        ::close(descriptor);
        return answer;
    }

    ServiceProcess service;
};

TEST_F(LimitsTest, SixteenMebibytesAreTaken)
{
    EXPECT_EQ(httpPost(service.url(), padded(greatestBody)).status, 200);
}

TEST_F(LimitsTest, OneByteMoreIsTooMuch)
{
    const HttpOutcome outcome = httpPost(service.url(), padded(greatestBody + 1));
    EXPECT_EQ(outcome.status, 413);
    EXPECT_THAT(outcome.body.toStdString(), HasSubstr("16 MiB"));
}

TEST_F(LimitsTest, OneByteMoreInPiecesIsTooMuchToo)
{
    const HttpOutcome outcome = httpPost(
        service.url(), padded(greatestBody + 1), {{u"Transfer-Encoding: chunked"_s}, {}, {}});
    EXPECT_EQ(outcome.status, 413);
}

TEST_F(LimitsTest, NotXmlIsAFault)
{
    EXPECT_THAT(whenFaulted("not XML at all"), HasSubstr("not XML"));
    EXPECT_THAT(whenFaulted(""), HasSubstr("empty"));
}

TEST_F(LimitsTest, ADoctypeIsAFault)
{
    EXPECT_THAT(whenFaulted("<!DOCTYPE a><a/>"), HasSubstr("DOCTYPE"));
}

TEST_F(LimitsTest, DeepNestingIsAFault)
{
    EXPECT_THAT(whenFaulted(QByteArray("<a>").repeated(1'000'000)), HasSubstr("deeper than 256"));
}

TEST_F(LimitsTest, AMillionAttributesAreAFault)
{
    QByteArray xml = "<a";
    for (int number = 0; number < 1'000'000; ++number)
        xml += " a" + QByteArray::number(number) + "=''";
    EXPECT_THAT(whenFaulted(xml + "/>"), HasSubstr("more than 256 attributes"));
}

TEST_F(LimitsTest, NamespacesThatWouldTakeHoursAreAFault)
{
    QByteArray declarations;
    for (int number = 0; number < 255; ++number)
        declarations += " xmlns:p" + QByteArray::number(number) + "='u'";
    QByteArray xml = "<z:r xmlns:z='u'>" + QByteArray("<x" + declarations + '>').repeated(200);
    xml += QByteArray("<z:b/>").repeated((greatestBody - xml.size()) / 6);
    EXPECT_THAT(whenFaulted(xml), HasSubstr("more than 64 namespaces"));
}

TEST_F(LimitsTest, ElementsThatWouldFillTheMemoryAreAFault)
{
    EXPECT_THAT(whenFaulted("<a>" + QByteArray("<b/>").repeated(4'000'000) + "</a>"),
        HasSubstr("more than 1000000 tags"));
}

TEST_F(LimitsTest, AnUnknownOperationIsAFault)
{
    QByteArray xml = sample("balance-request.xml");
    EXPECT_THAT(whenFaulted(xml.replace("BalanceRequest", "GiftRequest")),
        HasSubstr("Element 'GiftRequest': This element is not expected"));
}

TEST_F(LimitsTest, TensOfThousandsOfPositionsAreSoldAndComeBack)
{
    constexpr int count = 30'000;
    const QByteArray sale = sample("sale-fiscal-request.xml").replace(">100.00<", ">742.06<");
    EXPECT_EQ(whenAnsweredCode(withItems(sale, 1, count)), u"0");
    // None of the numbers is the sale's, so that each must be found by its article.
    const QByteArray returning
        = sample("return-request.xml").replace("<DateTime>2024-03-05</", "<DateTime></");
    EXPECT_EQ(whenAnsweredCode(withItems(returning, -count, count)), u"0");
}

TEST_F(LimitsTest, TensOfThousandsOfCouponsAreTaken)
{
    QByteArray xml = sample("sale-soft-request.xml");
    QByteArray coupons;
    for (int number = 0; number < 100'000; ++number)
        coupons += "<Coupon><Number>" + QByteArray::number(number) + "</Number></Coupon>";
    EXPECT_EQ(whenAnsweredCode(xml.replace("</Coupons>", coupons.append("</Coupons>"))), u"0");
}

TEST_F(LimitsTest, WhatIsNotHttpIsTold)
{
    EXPECT_THAT(whenSentRaw("HELLO\r\n\r\n").toStdString(), testing::StartsWith("HTTP/1.1 400 "));
    const QByteArray longHead = "GET / HTTP/1.1\r\nX: " + QByteArray(20'000, 'x') + "\r\n\r\n";
    EXPECT_THAT(whenSentRaw(longHead).toStdString(), testing::StartsWith("HTTP/1.1 431 "));
}

TEST_F(LimitsTest, AClientThatNamesNoHostGetsTheDescriptionAsItIs)
{
    EXPECT_THAT(whenSentRaw("GET /?wsdl HTTP/1.0\r\n\r\n").toStdString(),
        HasSubstr("location=\"http://127.0.0.1:8080/\""));
}

TEST_F(LimitsTest, EveryAnswerTellsTheTime)
{
    const QString answer = QString::fromUtf8(whenSentRaw("GET /?wsdl HTTP/1.0\r\n\r\n"));
    const QString told = answer.section(u"\r\nDate: "_s, 1).section(u"\r\n"_s, 0, 0);
    const QDateTime time = QDateTime::fromString(told, Qt::RFC2822Date);
    EXPECT_THAT(told.toStdString(), testing::EndsWith(" GMT"));
    EXPECT_LT(qAbs(time.secsTo(QDateTime::currentDateTimeUtc())), 60) << told.toStdString();
}

TEST_F(LimitsTest, HalfARequestIsNotAnswered)
{
    EXPECT_EQ(whenSentRaw("POST / HTTP/1.1\r\nContent-Length: 10\r\n\r\nabc"), "");
    EXPECT_EQ(whenSentRaw("POST / HT"), "");
    EXPECT_EQ(whenSentRaw(""), "");
}

TEST_F(LimitsTest, OtherMethodsAndPathsAreTold)
{
    EXPECT_EQ(httpGet(service.url()).status, 405);
    EXPECT_EQ(httpGet(service.url() + u"?other"_s).status, 405);
    EXPECT_EQ(httpPost(service.url() + u"loyalty.xsd"_s, "").status, 404);
    EXPECT_EQ(httpGet(service.url() + u"nothing"_s).status, 404);
    EXPECT_EQ(httpGet(service.api("nothing")).status, 404);
    EXPECT_EQ(httpPost(service.api("nothing"), "").status, 404);
}

} // namespace
} // namespace emulator
