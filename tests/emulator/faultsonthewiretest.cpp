#include "emulator/soap/xmldocument.h"
#include "tests/emulator/support/httpclient.h"
#include "tests/emulator/support/samples.h"
#include "tests/emulator/support/serviceprocess.h"
#include "tests/emulator/support/xmltree.h"

#include <QElapsedTimer>

#include <curl/curl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

class FaultsOnTheWire : public testing::Test
{
protected:
    void givenFault(const QByteArray &words)
    {
        EXPECT_EQ(httpPost(service.api("faults"), words).status, 200);
    }

    HttpOutcome whenAsked() { return httpPost(service.url(), sample("balance-request.xml")); }

    HttpOutcome whenSold()
    {
        QByteArray sale = sample("sale-fiscal-request.xml");
        sale.replace(">100.00</PaidByBonus>", ">0.00</PaidByBonus>");
        return httpPost(service.url(), sale);
    }

    std::size_t registeredSales()
    {
        return static_cast<std::size_t>(
            httpGet(service.api("transactions")).body.count("\"kind\": \"sale\""));
    }

    void thenAnsweredAgain() { EXPECT_EQ(whenAsked().status, 200); }

    ServiceProcess service;
};

TEST_F(FaultsOnTheWire, RefuseClosesTheNextConnections)
{
    givenFault("refuse 2");
    EXPECT_NE(whenAsked().curlCode, CURLE_OK);
    EXPECT_NE(whenAsked().curlCode, CURLE_OK);
    thenAnsweredAgain();
}

TEST_F(FaultsOnTheWire, HalfCutsTheAnswerAndActs)
{
    givenFault("fiscal half");
    const HttpOutcome outcome = whenSold();
    EXPECT_EQ(outcome.curlCode, CURLE_PARTIAL_FILE);
    EXPECT_EQ(outcome.status, 200);
    EXPECT_THAT(outcome.body.toStdString(), testing::HasSubstr("<soap:Envelope"));
    EXPECT_EQ(registeredSales(), 1u);
}

TEST_F(FaultsOnTheWire, ResetResetsWithoutActing)
{
    givenFault("fiscal reset");
    EXPECT_EQ(whenSold().curlCode, CURLE_RECV_ERROR);
    EXPECT_EQ(registeredSales(), 0u);
    EXPECT_EQ(whenSold().status, 200);
}

TEST_F(FaultsOnTheWire, LoseActsAndClosesWithoutAWord)
{
    givenFault("fiscal lose");
    EXPECT_EQ(whenSold().curlCode, CURLE_GOT_NOTHING);
    EXPECT_EQ(registeredSales(), 1u);
}

TEST_F(FaultsOnTheWire, NotXmlAnswersSomethingElseWithoutActing)
{
    givenFault("fiscal not-xml");
    const HttpOutcome outcome = whenSold();
    EXPECT_EQ(outcome.status, 200);
    EXPECT_THAT(outcome.body.toStdString(), testing::StartsWith("This is not XML"));
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, StatusAnswersTheStatusWithoutActing)
{
    givenFault("fiscal status 503");
    EXPECT_EQ(whenSold().status, 503);
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, CodeAnswersTheReturnCodeWithoutActing)
{
    givenFault("fiscal code 80001");
    EXPECT_EQ(firstValue(whenSold().body, u"ReturnCode"_s), u"80001");
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, CodeOfTooFewPointsComesWithAllFigures)
{
    givenFault("fiscal code 81400");
    const QByteArray answer = whenSold().body;
    EXPECT_EQ(complaintOfSchemaFiles(answer), QString());
    EXPECT_EQ(firstValue(answer, u"ReturnCode"_s), u"81400");
    EXPECT_EQ(firstValue(answer, u"Summ"_s), u"815.30");
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, CodeStrikesABalanceRequestToo)
{
    givenFault("balance code 80420");
    EXPECT_EQ(firstValue(whenAsked().body, u"ReturnCode"_s), u"80420");
}

TEST_F(FaultsOnTheWire, UnauthorisedAnswers401WithoutActing)
{
    givenFault("all unauthorised");
    EXPECT_EQ(whenSold().status, 401);
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, DelayActsThenWaitsWhileOthersAreServed)
{
    constexpr qint64 delay = 300; // milliseconds
    givenFault("fiscal delay 300");
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(whenSold().status, 200);
    EXPECT_GE(timer.elapsed(), delay);
    EXPECT_EQ(registeredSales(), 1u);
}

TEST_F(FaultsOnTheWire, DripActsAndTakesItsTime)
{
    constexpr qint64 time = 300; // milliseconds
    givenFault("fiscal drip 300");
    QElapsedTimer timer;
    timer.start();
    const HttpOutcome outcome = whenSold();
    EXPECT_GE(timer.elapsed(), time);
    EXPECT_EQ(outcome.status, 200);
    EXPECT_EQ(complaintOfSchemaFiles(outcome.body), QString());
    EXPECT_EQ(registeredSales(), 1u);
}

TEST_F(FaultsOnTheWire, SwallowClosesWithoutAWordAndWithoutActing)
{
    givenFault("fiscal swallow");
    EXPECT_EQ(whenSold().curlCode, CURLE_GOT_NOTHING);
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, EmptyAnswersNothingWithoutActing)
{
    givenFault("fiscal empty");
    const HttpOutcome outcome = whenSold();
    EXPECT_EQ(outcome.curlCode, CURLE_OK);
    EXPECT_EQ(outcome.status, 200);
    EXPECT_EQ(outcome.body, "");
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, WrongXmlIsWellFormedAndNoAnswer)
{
    givenFault("fiscal wrong-xml");
    const HttpOutcome outcome = whenSold();
    EXPECT_EQ(outcome.status, 200);
    EXPECT_NO_THROW(XmlDocument::parse(outcome.body));
    EXPECT_FALSE(outcome.body.contains("Envelope"));
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, HugeIsEightMegabytesOfXml)
{
    constexpr qsizetype least = 8 * 1024 * 1024;
    givenFault("fiscal huge");
    const HttpOutcome outcome = whenSold();
    EXPECT_EQ(outcome.status, 200);
    EXPECT_GE(outcome.body.size(), least);
    EXPECT_LT(outcome.body.size(), least + 1024);
    EXPECT_NO_THROW(XmlDocument::parse(outcome.body));
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, RedirectNamesAnotherAddress)
{
    givenFault("fiscal redirect 307");
    const HttpOutcome outcome = whenSold();
    EXPECT_EQ(outcome.status, 307);
    EXPECT_THAT(outcome.headers.toStdString(), testing::HasSubstr("Location: /elsewhere\r\n"));
    EXPECT_EQ(registeredSales(), 0u);
}

TEST_F(FaultsOnTheWire, SilenceKeepsTheConnectionAndServesTheNext)
{
    givenFault("silence");
    const std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> silent(
        curl_easy_init(), curl_easy_cleanup);
    curl_easy_setopt(silent.get(), CURLOPT_URL, service.url().toUtf8().constData());
    curl_easy_setopt(silent.get(), CURLOPT_CONNECT_ONLY, 1L);
    ASSERT_EQ(curl_easy_perform(silent.get()), CURLE_OK);
    const QByteArray request = "GET /api/cards HTTP/1.1\r\nHost: localhost\r\n\r\n";
    std::size_t count = 0;
    ASSERT_EQ(curl_easy_send(silent.get(), request.constData(),
                  static_cast<std::size_t>(request.size()), &count),
        CURLE_OK);
    thenAnsweredAgain();
    std::array<char, 1> answer{};
    // An end of the connection would be told as such.
    EXPECT_EQ(curl_easy_recv(silent.get(), answer.data(), answer.size(), &count), CURLE_AGAIN);
}

TEST_F(FaultsOnTheWire, StallWaitsBeforeItReads)
{
    constexpr qint64 time = 300; // milliseconds
    givenFault("stall 300");
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(whenSold().status, 200);
    EXPECT_GE(timer.elapsed(), time);
    EXPECT_EQ(registeredSales(), 1u);
}

TEST_F(FaultsOnTheWire, ChanceStrikesTheSameRequestsEveryTime)
{
    QString first;
    for (int round = 0; round < 2; ++round) {
        givenFault("clear");
        givenFault("balance status 503 50% seed 3");
        QString series;
        for (int request = 0; request < 20; ++request)
            series += whenAsked().status == 200 ? u'-' : u'x';
        EXPECT_TRUE(series.contains(u'x') && series.contains(u'-')) << qPrintable(series);
        if (round == 0)
            first = series;
        EXPECT_EQ(series, first);
    }
}

TEST_F(FaultsOnTheWire, ClearTakesBackWhatWasOrdered)
{
    givenFault("all reset always");
    givenFault("clear");
    thenAnsweredAgain();
    EXPECT_EQ(httpGet(service.api("faults")).body, "[]\n");
}

TEST_F(FaultsOnTheWire, StopAnswersAndFreesThePort)
{
    EXPECT_EQ(httpPost(service.api("faults"), "stop").body, "stop\n");
    EXPECT_EQ(whenAsked().curlCode, CURLE_COULDNT_CONNECT);
    EXPECT_EQ(service.waitForEnd(), 0);
}

TEST(FaultsFromTheStart, AreOrderedOnTheCommandLine)
{
    const ServiceProcess service(
        {u"--fault"_s, u"balance status 503"_s, u"--fault"_s, u"refuse 1"_s});
    EXPECT_NE(httpPost(service.url(), sample("balance-request.xml")).curlCode, CURLE_OK);
    EXPECT_EQ(httpPost(service.url(), sample("balance-request.xml")).status, 503);
    EXPECT_EQ(httpPost(service.url(), sample("balance-request.xml")).status, 200);
}

} // namespace
} // namespace emulator
