#include "tests/client/clientfixture.h"
#include <log4qt/logmanager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

class TransportTest : public ClientTest
{
protected:
    QDomDocument whenSent(int timeout = 7)
    {
        QDomDocument request;
        request.appendChild(request.createElement(u"Outer"_s))
            .appendChild(request.createElement(u"Привет"_s));
        return client().sendRequest(request, timeout);
    }
    void thenAnswerIsRefused()
    {
        const auto refusal = refusalOf([this] { whenSent(); });
        ASSERT_TRUE(refusal);
        EXPECT_EQ(
            refusal->tr(), tr::Tr(u"requestIncorrectAnswer"_s, u"Некорректный ответ от сервера"_s));
        EXPECT_FALSE(refusal->flag());
        EXPECT_EQ(outcomeOf([this] { whenSent(); }), Outcome::Refusal);
    }
};

} // namespace

TEST_F(TransportTest, PostsTheRequestToTheServiceOnce)
{
    givenSetting(u"url"_s, u"http://service.example/loyalty"_s);
    givenAnswer(u"<Answer/>"_s);
    whenSent(42);
    ASSERT_EQ(exchanges().size(), 1);
    EXPECT_EQ(exchanges().last().url, QUrl(u"http://service.example/loyalty"_s));
    EXPECT_EQ(exchanges().last().timeout, 42);
    EXPECT_EQ(exchanges().last().headers, client().formXmlRequestHeaders());
    EXPECT_EQ(exchanges().last().logger, Log4Qt::LogManager::logger(u"korvelonline"_s));
}

TEST_F(TransportTest, TheBodyIsIndentedByOneInUtf8)
{
    givenAnswer(u"<Answer/>"_s);
    whenSent();
    EXPECT_EQ(exchanges().last().body, u"<Outer>\n <Привет/>\n</Outer>\n"_s.toUtf8());
}

TEST_F(TransportTest, EachRequestHasAClientOfItsOwn)
{
    int made = 0;
    const auto service = QSharedPointer<ScriptedService>::create();
    service->answer = "<a/>";
    MockFactory<RestClient>::setCreator([&made, service] {
        ++made;
        return QSharedPointer<RestClientDouble>::create(service);
    });
    whenSent();
    whenSent();
    EXPECT_EQ(made, 2);
}

TEST_F(TransportTest, ReturnsTheParsedAnswerUnchecked)
{
    givenAnswer(u"<ReturnCode>80001</ReturnCode>"_s);
    EXPECT_EQ(whenSent().elementsByTagName(u"ReturnCode"_s).at(0).toElement().text(), u"80001"_s);
    EXPECT_EQ(logged(u"ERROR"_s), QStringList());
}

TEST_F(TransportTest, AFailedExchangeIsALostConnectionWithTheClientsMessage)
{
    const tr::Tr message = tr::Tr(u"restClient"_s, u"Нет связи: %1"_s).arg(u"timeout"_s);
    givenFailure(RestClient::TimedOut, message);
    const auto refusal = refusalOf([this] { whenSent(); });
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->tr(), message);
    EXPECT_FALSE(refusal->flag());
    EXPECT_EQ(logged(u"ERROR"_s),
        QStringList(u"Произошла ошибка при выполнении запроса: 'Нет связи: timeout'"_s));
}

TEST_F(TransportTest, EveryErrorCodeAboveZeroIsALostConnection)
{
    for (const int code : {1, 404, 500}) {
        SCOPED_TRACE(code);
        givenFailure(code, {});
        EXPECT_EQ(outcomeOf([this] { whenSent(); }), Outcome::NoConnection);
    }
}

TEST_F(TransportTest, AnErrorCodeBelowZeroIsNoFailure)
{
    givenAnswer(u"<Answer/>"_s);
    givenFailure(-1, {});
    EXPECT_EQ(outcomeOf([this] { whenSent(); }), Outcome::Returns);
}

TEST_F(TransportTest, AnAnswerThatIsNoXmlIsARefusalAndLogsWhere)
{
    givenBytes("<a>\n <b></c>\n</a>");
    EXPECT_TRUE(refusalOf([this] { whenSent(); }));
    EXPECT_EQ(logged(u"ERROR"_s),
        QStringList(
            u"Не удалось интерпретировать ответ от сервера([2, 8] Opening and ending tag mismatch.)"_s));
}

TEST_F(TransportTest, AnEmptyAnswerIsARefusal)
{
    givenBytes({});
    thenAnswerIsRefused();
}

TEST_F(TransportTest, AnAnswerThatTheGuardRefusesIsLikeOneThatIsNoXml)
{
    givenBytes("<!DOCTYPE a [\n <!ENTITY b 'c'>]>\n<a>&b;</a>");
    thenAnswerIsRefused();
    EXPECT_EQ(logged(u"ERROR"_s).first(),
        u"Не удалось интерпретировать ответ от сервера([2, 2] The document type declares entities.)"_s);
}

TEST_F(TransportTest, APlaceholderInTheParsersTextIsNotFilled)
{
    givenBytes("<?xml version='1.0' encoding='%1'?><a/>");
    EXPECT_TRUE(refusalOf([this] { whenSent(); }));
    EXPECT_TRUE(logged(u"ERROR"_s).first().contains(u"[1, 1] Encoding %1 "_s))
        << logged(u"ERROR"_s).first().toStdString();
}

TEST_F(TransportTest, ANamespaceIsNotProcessed)
{
    givenBytes("<x:a xmlns:x='urn:x'><x:ReturnCode>80001</x:ReturnCode></x:a>");
    const QDomDocument answer = whenSent();
    EXPECT_EQ(answer.documentElement().tagName(), u"x:a"_s);
    EXPECT_EQ(outcomeOf([&] { client().checkResponse(answer); }), Outcome::Returns);
}
