#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class EnvelopeTest : public ClientTest
{
protected:
    EnvelopeTest() { givenTime(QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9, 321))); }
    QDomDocument wrapped(const QString &payloadName, const QString &child = {})
    {
        QDomDocument document;
        QDomElement element = document.createElement(payloadName);
        if (!child.isEmpty())
            element.appendChild(document.createElement(child));
        client().formXmlRequest(element, document);
        return document;
    }
    static QDomElement payloadOf(const QDomDocument &document)
    {
        return document.elementsByTagName(u"request"_s).at(0).firstChildElement();
    }
    QString authorization() { return client().formXmlRequestHeaders().value(u"Authorization"_s); }
    static QString basic(const char *credentials)
    {
        return u"Basic "_s + QString::fromLatin1(QByteArray(credentials).toBase64());
    }
};

} // namespace

TEST_F(EnvelopeTest, WrapsThePayloadWithTheFieldsOfEveryRequest)
{
    givenSetting(u"orgName"_s, u"Shop & Co"_s);
    givenSetting(u"pos"_s, u"pos"_s);
    givenSetting(u"organization"_s, u"org"_s);
    givenSetting(u"businessUnit"_s, u"unit"_s);
    const QString expected = uR"(
        <soap:Envelope xmlns:soap="http://schemas.xmlsoap.org/soap/envelope/"
                       xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
                       xmlns:xsd="http://www.w3.org/2001/XMLSchema">
          <soap:Body>
            <ProcessRequest xmlns="http://schemas.korvel.example/loyalty/processing">
              <orgName>Shop &amp; Co</orgName>
              <request>
                <BalanceRequest>
                  <Card/>
                  <DateTime>2024-03-05T17:04:09</DateTime>
                  <POS>&lt;pos></POS>
                  <Organization>org</Organization>
                  <BusinessUnit>&lt;unit></BusinessUnit>
                </BalanceRequest>
              </request>
            </ProcessRequest>
          </soap:Body>
        </soap:Envelope>)"_s;
    const QDomDocument document = wrapped(u"BalanceRequest"_s, u"Card"_s);
    EXPECT_TRUE(isXml(document.documentElement(), expected));
}

TEST_F(EnvelopeTest, BeginsWithTheDeclaration)
{
    const QDomDocument document = wrapped(u"P"_s);
    const QDomProcessingInstruction declaration = document.firstChild().toProcessingInstruction();
    EXPECT_EQ(declaration.target(), u"xml"_s);
    EXPECT_EQ(declaration.data(), u"version='1.0' encoding='utf-8'"_s);
    EXPECT_EQ(document.childNodes().size(), 2);
}

TEST_F(EnvelopeTest, PosAndBusinessUnitAreMasksAndTheOrganizationIsNot)
{
    for (const QString &name : {u"pos"_s, u"organization"_s, u"businessUnit"_s, u"orgName"_s})
        givenSetting(name, u"${till}"_s);
    givenMask(u"${till}"_s, u"3"_s);
    const QDomDocument document = wrapped(u"P"_s);
    EXPECT_EQ(childText(payloadOf(document), u"POS"_s), u"3"_s);
    EXPECT_EQ(childText(payloadOf(document), u"Organization"_s), u"${till}"_s);
    EXPECT_EQ(childText(payloadOf(document), u"BusinessUnit"_s), u"3"_s);
    EXPECT_EQ(document.elementsByTagName(u"orgName"_s).at(0).toElement().text(), u"${till}"_s);
}

TEST_F(EnvelopeTest, EmptySettingsStillGiveTheirElements)
{
    const QDomDocument document = wrapped(u"P"_s);
    const QDomElement process = document.elementsByTagName(u"ProcessRequest"_s).at(0).toElement();
    EXPECT_EQ(childNames(process), QStringList({u"orgName"_s, u"request"_s}));
    EXPECT_EQ(childNames(payloadOf(document)),
        QStringList({u"DateTime"_s, u"POS"_s, u"Organization"_s, u"BusinessUnit"_s}));
}

TEST_F(EnvelopeTest, TheTimeHasTwentyFourHours)
{
    givenTime(QDateTime(QDate(2024, 12, 31), QTime(0, 0, 0)));
    EXPECT_EQ(childText(payloadOf(wrapped(u"P"_s)), u"DateTime"_s), u"2024-12-31T00:00:00"_s);
}

TEST_F(EnvelopeTest, TheTimeHasNoZone)
{
    givenTime(QDateTime(QDate(2024, 3, 5), QTime(17, 4, 9), Qt::UTC));
    EXPECT_EQ(childText(payloadOf(wrapped(u"P"_s)), u"DateTime"_s), u"2024-03-05T17:04:09"_s);
}

TEST_F(EnvelopeTest, ThereAreExactlyTwoHeaders)
{
    const auto headers = client().formXmlRequestHeaders();
    EXPECT_EQ(headers.size(), 2);
    EXPECT_EQ(headers.value(u"Content-Type"_s), u"text/xml; charset=UTF-8"_s);
    EXPECT_TRUE(headers.contains(u"Authorization"_s));
}

TEST_F(EnvelopeTest, EmptyCredentialsAreAColon)
{
    EXPECT_EQ(authorization(), u"Basic Og=="_s);
}

TEST_F(EnvelopeTest, CredentialsAreUserAndPassword)
{
    givenSetting(u"user"_s, u"till"_s);
    givenSetting(u"password"_s, u"секрет"_s);
    EXPECT_EQ(authorization(), basic(u"till:секрет"_s.toLocal8Bit().constData()));
}

TEST_F(EnvelopeTest, AUserWithAPlaceholderIsFilledWithThePassword)
{
    givenSetting(u"user"_s, u"a%1"_s);
    givenSetting(u"password"_s, u"b"_s);
    EXPECT_EQ(authorization(), basic("ab:%2"));
}

TEST_F(EnvelopeTest, APasswordWithAPlaceholderStaysAsItIs)
{
    givenSetting(u"user"_s, u"a"_s);
    givenSetting(u"password"_s, u"%1%2"_s);
    EXPECT_EQ(authorization(), basic("a:%1%2"));
}
