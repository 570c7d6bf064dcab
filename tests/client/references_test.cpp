#include "tests/client/clientfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class ReferencesTest : public ClientTest
{
protected:
    ReferencesTest()
    {
        givenCheque();
        document()->setReferencedNumber(u"16"_s);
    }
    void givenOperationInfo(const Values &info)
    {
        document()->getCardRecord(ECardMode::OnlineLoyalty)->setOperationInfo(info);
    }
    QDomElement whenChequeIsReferenced()
    {
        QDomElement reference = m_request.createElement(u"Other"_s);
        client().formChequeReference(document(), reference, m_request);
        return reference;
    }
    QDomDocument m_request;
};

} // namespace

TEST_F(ReferencesTest, ATransactionIsItsId)
{
    const auto card = makeCard(u"1"_s);
    card->setOperationId(u"T-5"_s);
    QDomElement reference;
    client().formTransactionReference(card, reference, m_request);
    EXPECT_TRUE(isXml(reference,
        u"<TransactionReference><TransactionID>T-5</TransactionID></TransactionReference>"_s));
}

TEST_F(ReferencesTest, AnUnregisteredTransactionHasAnEmptyId)
{
    QDomElement reference;
    client().formTransactionReference(makeCard(u"1"_s), reference, m_request);
    EXPECT_TRUE(isXml(reference,
        u"<TransactionReference><TransactionID></TransactionID></TransactionReference>"_s));
}

TEST_F(ReferencesTest, AChequeIsNumberDateAndPlace)
{
    givenSetting(u"pos"_s, u"${till}"_s);
    givenSetting(u"organization"_s, u"${till}"_s);
    givenSetting(u"businessUnit"_s, u"${shop}"_s);
    givenMask(u"${till}"_s, u"3"_s);
    givenMask(u"${shop}"_s, u"44"_s);
    givenOperationInfo({{u"TransactionDate"_s, u"5 марта"_s}});
    EXPECT_TRUE(isXml(whenChequeIsReferenced(), uR"(<ChequeReference><Number>16</Number>
        <DateTime>5 марта</DateTime><POS>3</POS><Organization>${till}</Organization>
        <BusinessUnit>44</BusinessUnit></ChequeReference>)"_s));
}

TEST_F(ReferencesTest, ADateIsWrittenAsItsText)
{
    givenOperationInfo({{u"TransactionDate"_s, QDate(2024, 3, 5)}});
    EXPECT_EQ(childText(whenChequeIsReferenced(), u"DateTime"_s), u"2024-03-05"_s);
}

TEST_F(ReferencesTest, AMissingDateIsAnEmptyText)
{
    EXPECT_EQ(childText(whenChequeIsReferenced(), u"DateTime"_s), u""_s);
    givenOperationInfo({{u"transactiondate"_s, u"x"_s}});
    EXPECT_EQ(childText(whenChequeIsReferenced(), u"DateTime"_s), u""_s);
}
