#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

ClientTest::ClientTest()
    : m_service(QSharedPointer<ScriptedService>::create())
    , m_queue(QSharedPointer<QueueDouble>::create())
    , m_journal(QSharedPointer<NotifierDouble>::create())
    , m_formatter(QSharedPointer<FormatterDouble::Script>::create())
    , m_documentObject(QSharedPointer<QObject>::create())
    , m_log(korvel::loggerName)
{
    MockFactory<RestClient>::setCreator(
        [this] { return QSharedPointer<RestClientDouble>::create(m_service); });
    MockFactory<SimpleFormatter>::setCreator(
        [this] { return QSharedPointer<FormatterDouble>::create(m_formatter); });
    MockFactory<DocumentLogic>::setCreator(
        [this] { return QSharedPointer<DocumentLogicDouble>::create(documentObjects()); });
    Singleton<DBQueueBroker>::set(m_queue);
    Singleton<ActivityNotifier>::set(m_journal);
}

void ClientTest::givenSetting(const QString &name, const QString &value)
{
    HostFixture::givenSetting(korvel::group + u':' + name, value);
}

void ClientTest::givenTime(const QDateTime &time)
{
    MockFactory<CurrentTime>::setCreator(
        [time] { return QSharedPointer<ClockDouble>::create(time); });
}

void ClientTest::givenAnswer(const QString &content)
{
    givenBytes(QString(u"<Envelope><Body>" + content + u"</Body></Envelope>").toUtf8());
}

void ClientTest::givenBytes(const QByteArray &bytes)
{
    m_service->answer = bytes;
}

void ClientTest::givenFailure(int errorCode, const tr::Tr &message)
{
    m_service->errorCode = errorCode;
    m_service->errorMessage = message;
}

void ClientTest::givenMask(const QString &mask, const QString &text)
{
    m_formatter->texts.insert(mask, text);
}

void ClientTest::givenStored(const QString &key, const Values &values)
{
    document()->setStoredValue(korvel::group, key, values);
}

void ClientTest::givenCheque()
{
    givenCurrentDocument();
    givenCard();
}

const korvelLoyaltyOnline::Interface &ClientTest::client()
{
    if (!m_client)
        m_client = MockFactory<Interface>::create();
    return *m_client;
}

bool ClientTest::whenCalculated()
{
    Values result;
    return client().saleChequeRequest(document(), korvel::chequetype::soft, {}, result);
}

QDomDocument ClientTest::request() const
{
    QDomDocument document;
    if (!exchanges().isEmpty())
        document.setContent(exchanges().last().body);
    return document;
}

QDomElement ClientTest::payload() const
{
    const QDomElement body = request().documentElement().firstChildElement();
    return body.firstChildElement().firstChildElement(u"request"_s).firstChildElement();
}

QStringList ClientTest::logged(const QString &level) const
{
    QStringList messages;
    for (const QString &line : m_log.lines())
        if (line.startsWith(level + u' '))
            messages.append(line.mid(level.size() + 1));
    return messages;
}

QDomDocument ClientTest::parsed(const QString &xml)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(xml)) << xml.toStdString();
    return document;
}

testing::AssertionResult isXml(const QDomElement &actual, const QString &expected)
{
    QDomDocument document;
    document.setContent(expected);
    const QStringList differences = xmlDifferences(actual, document.documentElement());
    if (differences.isEmpty())
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << differences.join(u'\n').toStdString();
}
