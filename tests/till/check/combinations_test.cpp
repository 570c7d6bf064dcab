#include "tests/till/check/rulesfixture.h"

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

using CombinationsTest = RulesFixture;

TEST_F(CombinationsTest, OfWhatIsUsualAreFine)
{
    givenConfiguration("[KorvelLoyaltyOnline]\nurl=https://loyalty.example/\nuser=u\npassword=p\n"
                       "[RestClient]\ncaFile=x\nbreakerFailures=3\nbreakerSeconds=60\n"
                       "[KorvelLoyaltyOnline.ExtendedAttributes.a]\nkey1=k\nvalue1=v\n");
    EXPECT_EQ(briefly(judgeCombinations(files(), effective())), QStringList());
}

TEST_F(CombinationsTest, OfNothingAreFine)
{
    EXPECT_EQ(briefly(judgeCombinations(files(), effective())), QStringList());
}

TEST_F(CombinationsTest, ThatContradictEachOtherAreTold)
{
    struct Row
    {
        QByteArray ini;
        QString found; ///< empty: nothing
    };
    const QByteArray plugin = "[KorvelLoyaltyOnline]\n";
    const QByteArray attribute = "[KorvelLoyaltyOnline.ExtendedAttributes.a]\n";
    const QList<Row> rows{
        {"[RestClient]\nbreakerFailures=3",
            u"warning checkBreakerHalf till.ini:2 RestClient:breakerFailures"_s},
        {"[RestClient]\nbreakerSeconds=3\nbreakerFailures=0",
            u"warning checkBreakerHalf till.ini:2 RestClient:breakerSeconds"_s},
        {"[Queue]\nwarnMinutes=60\nalarmMinutes=60",
            u"warning checkLimitsCrossed till.ini:2 Queue:warnMinutes"_s},
        {"[Queue]\nwarnMinutes=59\nalarmMinutes=60", {}},
        {"[Queue]\nalarmMinutes=30", u"warning checkLimitsCrossed till.ini:2 Queue:alarmMinutes"_s},
        {"[RestClient]\nclientKey=k", u"warning checkKeyAlone till.ini:2 RestClient:clientKey"_s},
        {plugin + "url=http://h/\n[RestClient]\ncaFile=c\nclientCert=c",
            u"warning checkTlsUnused till.ini:4 RestClient:caFile; "
            u"warning checkTlsUnused till.ini:5 RestClient:clientCert"_s},
        {plugin + "couponMessageDelimeter=",
            u"warning checkDelimiterEmpty till.ini:2 KorvelLoyaltyOnline:couponMessageDelimeter"_s},
        {plugin + "useConfirmation=true",
            u"warning checkCodeNeverAsked till.ini:2 KorvelLoyaltyOnline:useConfirmation"_s},
        {plugin + "useConfirmation=true\nnoConfirmationBonusLimit=0", {}},
        {plugin + "noConfirmationBonusLimit=100",
            u"warning checkLimitUnused till.ini:2 KorvelLoyaltyOnline:noConfirmationBonusLimit"_s},
        {plugin + "forbiddenCardStatuses=4,5",
            u"note checkStatusesTwice till.ini:2 KorvelLoyaltyOnline:forbiddenCardStatuses"_s},
        {plugin + "forbiddenCardStatuses=5\nforbiddenCardStatusesForCustomer=", {}},
        {plugin + "user=u", u"warning checkCredentialsHalf till.ini:2 KorvelLoyaltyOnline:user"_s},
        {plugin + "password=p",
            u"warning checkCredentialsHalf till.ini:2 KorvelLoyaltyOnline:password"_s},
        {plugin + "user=a:b\npassword=p",
            u"error checkUserColon till.ini:2 KorvelLoyaltyOnline:user"_s},
        {plugin + "user=a%2\npassword=p",
            u"warning checkUserMark till.ini:2 KorvelLoyaltyOnline:user"_s},
        {attribute + "key1=k",
            u"warning checkAttributeHalf till.ini:2 "
            u"KorvelLoyaltyOnline.ExtendedAttributes.a:key1"_s},
        {attribute + "key1=k\nvalue2=v",
            u"warning checkAttributeHalf till.ini:2 "
            u"KorvelLoyaltyOnline.ExtendedAttributes.a:key1; "
            u"warning checkAttributeHalf till.ini:3 "
            u"KorvelLoyaltyOnline.ExtendedAttributes.a:value2"_s},
        {"[Till]\nloyalty=false", u"note checkLoyaltyOff till.ini:2 Till:loyalty"_s},
        {"[Till]\nloyalty=true", {}},
        {plugin + "markdownCouponPrefix=уценка",
            u"note checkPercentageMissing till.ini:2 KorvelLoyaltyOnline:markdownCouponPrefix"_s},
        {plugin + "url=http://127.0.0.1:8080/\n[Till]\nserviceApi=http://127.0.0.1:8080/api", {}},
        {plugin + "url=http://127.0.0.1:8081/\n[Till]\nserviceApi=http://127.0.0.1:8080/api",
            u"note checkApiElsewhere till.ini:4 Till:serviceApi"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.ini.constData());
        givenConfiguration(row.ini);
        EXPECT_EQ(briefly(judgeCombinations(files(), effective())).join(u"; "_s), row.found);
    }
}

} // namespace
