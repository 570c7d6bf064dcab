#include "tests/support/schema.h"
#include "tests/till/check/rulesfixture.h"
#include "till/check/balancerequest.h"

#include <QDomDocument>

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

class BalanceRequestTest : public RulesFixture
{
public:
    QStringList schemaErrors() const
    {
        return XmlSchema(QStringLiteral(PROTOCOL_FOLDER "/soap-envelope.xsd")).errorsOf(message);
    }
    void whenComposed(const QString &card)
    {
        message = balanceRequest(effective(), card);
        request.setContent(message);
    }
    [[nodiscard]] QString text(const QString &element) const
    {
        return request.elementsByTagName(element).at(0).toElement().text();
    }

    QByteArray message;
    QDomDocument request;
};

TEST_F(BalanceRequestTest, IsWhatTheProtocolWants)
{
    whenComposed(u"2900000000017"_s);
    EXPECT_EQ(schemaErrors(), QStringList());
    EXPECT_EQ(text(u"CardNumber"_s), u"2900000000017"_s);
    EXPECT_FALSE(text(u"DateTime"_s).startsWith(u"2024-03-05"_s));
}

TEST_F(BalanceRequestTest, IsFilledByTheSettings)
{
    givenFile(u"catalogue.json"_s, R"({"articles": [], "till": {"shop": "17", "number": "4"}})");
    givenConfiguration(
        "[Till]\ncatalogue=catalogue.json\n[KorvelLoyaltyOnline]\norgName=Org & Co\n"
        "organization=${shop}\nbusinessUnit=B${shop}\npos=${document.till}/${number}\n");
    whenComposed(u"1"_s);
    EXPECT_EQ(schemaErrors(), QStringList());
    EXPECT_EQ(text(u"orgName"_s), u"Org & Co"_s);
    EXPECT_EQ(text(u"Organization"_s), u"${shop}"_s);
    EXPECT_EQ(text(u"BusinessUnit"_s), u"B17"_s);
    EXPECT_EQ(text(u"POS"_s), u"4/"_s);
}

TEST_F(BalanceRequestTest, TakesShopAndNumberOfTheSettingsFirst)
{
    givenFile(u"catalogue.json"_s, R"({"articles": [], "till": {"shop": "17", "number": "4"}})");
    givenConfiguration("[Till]\ncatalogue=catalogue.json\nshop=18\nnumber=5\n"
                       "[KorvelLoyaltyOnline]\nbusinessUnit=${shop}\npos=${till}\n");
    whenComposed(u"1"_s);
    EXPECT_EQ(text(u"BusinessUnit"_s), u"18"_s);
    EXPECT_EQ(text(u"POS"_s), u"5"_s);
}

TEST_F(BalanceRequestTest, DoesWithoutACatalogueThatCannotBeRead)
{
    givenConfiguration("[Till]\ncatalogue=missing.json\n[KorvelLoyaltyOnline]\npos=${shop}\n");
    whenComposed(u"1"_s);
    EXPECT_EQ(text(u"POS"_s), u"1"_s);
}

TEST_F(BalanceRequestTest, CanBeEmpty)
{
    QDomDocument empty;
    EXPECT_TRUE(empty.setContent(emptyRequest()));
    EXPECT_FALSE(empty.toString().contains(u"ProcessRequest"_s));
}

} // namespace
