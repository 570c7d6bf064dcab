#include "client/interface.h"
#include "common/exceptions.h"
#include "common/host/services.h"
#include "common/names.h"
#include "tests/support/hostfixture.h"
#include "tests/support/printers.h"
#include "tests/support/scriptedserver.h"
#include "tests/support/xmltree.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

// The client over the host's own HTTP client: what a service receives, and what the client makes of
// what a service does.

namespace {

class ExchangeTest : public testing::Test, protected HostFixture
{
protected:
    ExchangeTest()
    {
        givenSetting(u"KorvelLoyaltyOnline:url"_s, m_server.url().toString());
        givenSetting(u"KorvelLoyaltyOnline:user"_s, u"till"_s);
        givenSetting(u"KorvelLoyaltyOnline:password"_s, u"secret"_s);
        givenCurrentDocument();
    }
    void whenBalanceIsAsked()
    {
        MockFactory<korvelLoyaltyOnline::Interface>::create()->balanceRequest(m_card);
    }
    ScriptedServer m_server;
    QSharedPointer<DocumentCardRecord> m_card = makeCard(u"2900000000017"_s);
};

} // namespace

TEST_F(ExchangeTest, TheServiceReceivesOnePostWithTheTwoHeaders)
{
    m_server.answer("<a><ReturnCode>0</ReturnCode></a>");
    whenBalanceIsAsked();
    const auto requests = m_server.requests();
    ASSERT_EQ(requests.size(), 1);
    EXPECT_TRUE(requests.first().requestLine.startsWith("POST / HTTP/1.1"));
    EXPECT_EQ(requests.first().headers.value("content-type"), "text/xml; charset=UTF-8");
    EXPECT_EQ(requests.first().headers.value("authorization"), "Basic dGlsbDpzZWNyZXQ=");
    EXPECT_FALSE(requests.first().headers.contains("soapaction"));
}

TEST_F(ExchangeTest, TheServiceReceivesTheEnvelope)
{
    m_server.answer("<a/>");
    whenBalanceIsAsked();
    QDomDocument request;
    ASSERT_TRUE(request.setContent(m_server.requests().value(0).body));
    EXPECT_EQ(request.documentElement().tagName(), u"soap:Envelope"_s);
    EXPECT_EQ(xmlutils::getValueByTag(request, u"CardNumber"_s, 0), u"2900000000017"_s);
}

TEST_F(ExchangeTest, AnAnswerIsReadInItsOwnEncoding)
{
    m_server.answer("<?xml version='1.0' encoding='windows-1251'?><a><CardType>\xC7\xEE\xEB\xEE"
                    "\xF2\xEE</CardType></a>");
    whenBalanceIsAsked();
    EXPECT_EQ(m_card->getCard()->getClient()->getName(), u"Золото"_s);
}

TEST_F(ExchangeTest, AServiceThatHangsUpIsALostConnectionAndIsAskedOnce)
{
    m_server.answerRaw({});
    EXPECT_THROW(whenBalanceIsAsked(), KorvelNoConnectionException);
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(ExchangeTest, AServiceInTroubleIsALostConnectionWhateverItsBody)
{
    m_server.answer("<a><ReturnCode>0</ReturnCode></a>", 500);
    EXPECT_THROW(whenBalanceIsAsked(), KorvelNoConnectionException);
    EXPECT_FALSE(m_card->getBonusBalance().isValid());
}

TEST_F(ExchangeTest, APageInsteadOfAnAnswerIsARefusal)
{
    m_server.answer("<html><p>Please log in</html>");
    try {
        whenBalanceIsAsked();
        FAIL() << "nothing was thrown";
    } catch (const KorvelNoConnectionException &) {
        FAIL() << "a lost connection instead of a refusal";
    } catch (const KorvelException &refusal) {
        EXPECT_EQ(refusal.tr().ru(), u"Некорректный ответ от сервера"_s);
    }
}
