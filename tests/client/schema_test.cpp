#include "tests/client/clientfixture.h"
#include "tests/support/schema.h"

#include <QDir>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

// Every kind of request against the description of the wire. Tests of single elements say what
// stands in them; these say that the service will understand the whole.

namespace {

class SchemaTest : public ClientTest
{
protected:
    SchemaTest()
    {
        givenCheque();
        givenAnswer({});
        document()->setReferencedNumber(u"16"_s);
    }
    void givenEverything()
    {
        givenSetting(u"sendAdditionalBarcodeMarkdown"_s, u"true"_s);
        HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes.a:key1"_s, u"A"_s);
        HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes.a:value1"_s, u"1"_s);
        HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes.a:key2"_s, u"B"_s);
        HostFixture::givenSetting(u"KorvelLoyaltyOnline.ExtendedAttributes.a:value2"_s, u"2"_s);
        givenPosition(u"A<&>\u0001"_s, 99.99, 1.234)->setExtendedOptions(u"x,,y"_s);
        givenPosition(u"B"_s, 0)->setSumb(5);
        givenCoupon(u"C"_s);
        givenStored(u"chequeData"_s, {{u"ExtendedAttributes"_s, Values{{u"k"_s, u"v"_s}}}});
        document()
            ->getCardRecord(ECardMode::OnlineLoyalty)
            ->setOperationInfo(Values{{u"TransactionDate"_s, QDate(2024, 3, 5)}});
    }
    void thenRequestIsValid() const
    {
        ASSERT_FALSE(exchanges().isEmpty());
        EXPECT_EQ(m_schema.errorsOf(exchanges().last().body), QStringList())
            << exchanges().last().body.toStdString();
    }

    const XmlSchema m_schema{QStringLiteral(KORVEL_PROTOCOL_DIR "/soap-envelope.xsd")};
    Values m_result;
};

} // namespace

TEST_F(SchemaTest, ABalanceRequestIsValid)
{
    client().balanceRequest(makeCard(u"1"_s));
    thenRequestIsValid();
}

TEST_F(SchemaTest, ASaleWithNothingButACardIsValid)
{
    client().saleChequeRequest(document(), u"Soft"_s, {}, m_result);
    thenRequestIsValid();
}

TEST_F(SchemaTest, ASaleWithEverythingIsValid)
{
    givenEverything();
    const auto confirmation = QSharedPointer<korvel::ConfirmationInfo>::create();
    client().saleChequeRequest(document(), u"Fiscal"_s, confirmation, m_result);
    thenRequestIsValid();
}

TEST_F(SchemaTest, AReturnWithNothingButACardIsValid)
{
    client().returnChequeRequest(document());
    thenRequestIsValid();
}

TEST_F(SchemaTest, AReturnWithEverythingIsValid)
{
    givenEverything();
    client().returnChequeRequest(document());
    thenRequestIsValid();
}

TEST_F(SchemaTest, ARollbackIsValid)
{
    client().rollbackChequeRequest(document(), m_result);
    thenRequestIsValid();
}

TEST_F(SchemaTest, QueuedRequestsAreValid)
{
    givenEverything();
    client().saleChequeRequestOffline(document());
    client().returnChequeRequestOffline(document());
    ASSERT_EQ(queue().entries.size(), 2);
    for (const QueueDouble::Entry &entry : queue().entries)
        EXPECT_EQ(
            m_schema.errorsOf(entry.message.value(u"body"_s).toString().toUtf8()), QStringList());
}

TEST_F(SchemaTest, TheSchemaRefusesAnUnknownElement)
{
    client().rollbackChequeRequest(document(), m_result);
    QByteArray body = exchanges().last().body;
    body.replace("OperationType", "Operation");
    EXPECT_NE(m_schema.errorsOf(body), QStringList());
}

TEST_F(SchemaTest, EverySampleAnswerPassesAndIsRead)
{
    const QDir samples(QStringLiteral(KORVEL_PROTOCOL_DIR "/samples"));
    const QStringList names = samples.entryList({u"*-answer.xml"_s});
    ASSERT_FALSE(names.isEmpty());
    const QMap<QString, Outcome> refusals{{u"refusal-answer.xml"_s, Outcome::Refusal},
        // 81400 is the answer to a calculation only, where it is looked at before this.
        {u"points-refused-answer.xml"_s, Outcome::InternalError}};
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        QFile file(samples.filePath(name));
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        givenBytes(file.readAll());
        QDomDocument answer;
        EXPECT_EQ(outcomeOf([&] { answer = client().sendRequest({}, 1); }), Outcome::Returns);
        EXPECT_EQ(outcomeOf([&] { client().checkResponse(answer); }),
            refusals.value(name, Outcome::Returns));
    }
}
