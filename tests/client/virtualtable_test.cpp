#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Notes every call of a virtual operation and then does what the client does.
class NotingClient : public korvelLoyaltyOnline::Interface
{
public:
    using Document = QSharedPointer<AbstractDocument>;
    using Record = QSharedPointer<DocumentCardRecord>;
    using Confirmation = QSharedPointer<korvel::ConfirmationInfo>;
    using Values = QMap<QString, QVariant>;

    QDomDocument formSaleChequeRequest(const Document &document, const QString &type,
        const Confirmation &confirmation) const override
    {
        return note(u"formSaleChequeRequest"),
               Interface::formSaleChequeRequest(document, type, confirmation);
    }
    void formReturnChequeRequest(const Document &document, QDomDocument &request) const override
    {
        note(u"formReturnChequeRequest");
        Interface::formReturnChequeRequest(document, request);
    }
    QDomElement formCard(const Record &card, QDomDocument &request) const override
    {
        return note(u"formCard"), Interface::formCard(card, request);
    }
    QDomElement formWriteOffConfirm(
        const Confirmation &confirmation, QDomDocument &request) const override
    {
        return note(u"formWriteOffConfirm"), Interface::formWriteOffConfirm(confirmation, request);
    }
    QDomElement formCoupons(const Document &document, QDomDocument &request) const override
    {
        return note(u"formCoupons"), Interface::formCoupons(document, request);
    }
    void formTransactionReference(
        const Record &card, QDomElement &reference, QDomDocument &request) const override
    {
        note(u"formTransactionReference");
        Interface::formTransactionReference(card, reference, request);
    }
    void formChequeReference(
        const Document &document, QDomElement &reference, QDomDocument &request) const override
    {
        note(u"formChequeReference");
        Interface::formChequeReference(document, reference, request);
    }
    void formXmlRequest(QDomElement &payload, QDomDocument &request) const override
    {
        note(u"formXmlRequest");
        Interface::formXmlRequest(payload, request);
    }
    double calculateDiscount(double sumBefore, double sumAfter) const override
    {
        return note(u"calculateDiscount"), Interface::calculateDiscount(sumBefore, sumAfter);
    }
    QDomDocument sendRequest(const QDomDocument &request, int timeout) const override
    {
        return note(u"sendRequest"), Interface::sendRequest(request, timeout);
    }
    void checkResponse(const QDomDocument &response) const override
    {
        note(u"checkResponse");
        Interface::checkResponse(response);
    }
    void checkCardStatus(const QDomDocument &response) const override
    {
        note(u"checkCardStatus");
        Interface::checkCardStatus(response);
    }
    void fillClient(const QDomDocument &response, const Record &card) const override
    {
        note(u"fillClient");
        Interface::fillClient(response, card);
    }
    void fillRequestResult(const QDomDocument &response, Values &result) const override
    {
        note(u"fillRequestResult");
        Interface::fillRequestResult(response, result);
    }
    void fillExtendedAttribute(const QDomElement &attribute, Values &attributes) const override
    {
        note(u"fillExtendedAttribute");
        Interface::fillExtendedAttribute(attribute, attributes);
    }
    void sendRequestOffline(const QDomDocument &request) const override
    {
        note(u"sendRequestOffline");
        Interface::sendRequestOffline(request);
    }
    mutable QStringList calls;

private:
    void note(QStringView operation) const { calls.append(operation.toString()); }
};

class VirtualTableTest : public ClientTest
{
protected:
    VirtualTableTest()
    {
        givenCheque();
        givenPosition(u"A"_s, 10);
        givenAnswer({});
    }
    NotingClient m_client;
    Values m_result;
};

} // namespace

TEST_F(VirtualTableTest, ABalanceRequestGoesThroughTheTable)
{
    m_client.balanceRequest(makeCard(u"1"_s));
    EXPECT_EQ(m_client.calls,
        QStringList({u"formCard"_s, u"formXmlRequest"_s, u"sendRequest"_s, u"checkResponse"_s,
            u"checkCardStatus"_s, u"fillClient"_s}));
}

TEST_F(VirtualTableTest, ASaleGoesThroughTheTableAndChecksItsAnswerItself)
{
    givenAnswer(u"<ChequeResponse><ExtendedAttribute/><Item><ExtendedAttribute/></Item>"
                "</ChequeResponse>"_s);
    m_client.saleChequeRequest(document(), u"Soft"_s, {}, m_result);
    EXPECT_EQ(m_client.calls,
        QStringList({u"formSaleChequeRequest"_s, u"formCard"_s, u"formWriteOffConfirm"_s,
            u"formCoupons"_s, u"calculateDiscount"_s, u"formXmlRequest"_s, u"sendRequest"_s,
            u"fillRequestResult"_s, u"fillExtendedAttribute"_s, u"fillExtendedAttribute"_s}));
}

TEST_F(VirtualTableTest, ARollbackGoesThroughTheTable)
{
    m_client.rollbackChequeRequest(document(), m_result);
    EXPECT_EQ(m_client.calls,
        QStringList({u"formCard"_s, u"formTransactionReference"_s, u"formXmlRequest"_s,
            u"sendRequest"_s, u"checkResponse"_s}));
}

TEST_F(VirtualTableTest, AReturnGoesThroughTheTable)
{
    m_client.returnChequeRequest(document());
    EXPECT_EQ(m_client.calls,
        QStringList({u"formReturnChequeRequest"_s, u"formCard"_s, u"calculateDiscount"_s,
            u"formChequeReference"_s, u"calculateDiscount"_s, u"formXmlRequest"_s, u"sendRequest"_s,
            u"checkResponse"_s}));
}

TEST_F(VirtualTableTest, QueueingGoesThroughTheTable)
{
    m_client.saleChequeRequestOffline(document());
    EXPECT_EQ(m_client.calls.first(), u"formSaleChequeRequest"_s);
    EXPECT_EQ(m_client.calls.last(), u"sendRequestOffline"_s);
    m_client.calls.clear();
    m_client.returnChequeRequestOffline(document());
    EXPECT_EQ(m_client.calls.first(), u"formReturnChequeRequest"_s);
    EXPECT_EQ(m_client.calls.last(), u"sendRequestOffline"_s);
}

TEST_F(VirtualTableTest, ASubstituteIsMadeByTheFactory)
{
    MockFactory<Interface>::setCreator([] { return QSharedPointer<NotingClient>::create(); });
    EXPECT_NE(dynamic_cast<const NotingClient *>(&client()), nullptr);
    MockFactory<Interface>::setCreator({});
}
