#include "tests/till/check/rulesfixture.h"

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

constexpr QFile::Permissions everybody
    = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;

using SafetyTest = RulesFixture;

TEST_F(SafetyTest, OfAFileOfSecretsIsThatNobodyElseReadsIt)
{
    struct Row
    {
        QByteArray ini;
        QString key; ///< empty: no secret in it
    };
    const QList<Row> rows{
        {"[KorvelLoyaltyOnline]\npassword=p", u"KorvelLoyaltyOnline:password"_s},
        {"[KorvelLoyaltyOnline]\npassword=", {}},
        {"[KorvelLoyaltyOnline]\nuser=u", {}},
        {"[RestClient]\nproxy=http://u:p@proxy", u"RestClient:proxy"_s},
        {"[RestClient]\nproxy=http://proxy", {}},
        {"[RestClient]\nproxy=u:p@proxy:3128", u"RestClient:proxy"_s},
        {"[RestClient]\nproxy=proxy:3128", {}},
        {"[KorvelLoyaltyOnline]\nuser=a:b@c", {}},
        {"[Queue]\ndatabase=postgresql://u:p@h/n", u"Queue:database"_s},
        {"[Queue]\ndatabase=postgresql://u@h/n", {}},
        {"[Queue]\ndatabase=queue.sqlite", {}},
        {"[KorvelLoyaltyOnline]\nurl=https://u:p@h/", u"KorvelLoyaltyOnline:url"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.ini.constData());
        givenConfiguration(row.ini, everybody);
        EXPECT_EQ(briefly(judgeSafety(files(), effective())),
            row.key.isEmpty()
                ? QStringList()
                : QStringList{u"warning checkSecretReadable till.ini:2 "_s + row.key});
        givenConfiguration(row.ini);
        EXPECT_EQ(briefly(judgeSafety(files(), effective())), QStringList());
    }
}

TEST_F(SafetyTest, OfAFileThatAValueIsReadFromCountsForIt)
{
    const QByteArray ini = "[KorvelLoyaltyOnline]\npassword=@file:password\n";
    givenFile(u"password"_s, "p");
    givenConfiguration(ini, everybody);
    EXPECT_EQ(briefly(judgeSafety(files(), effective())), QStringList());

    givenFile(u"password"_s, "p", everybody);
    givenConfiguration(ini);
    const Findings found = judgeSafety(files(), effective());
    EXPECT_EQ(briefly(found),
        QStringList{u"warning checkSecretReadable till.ini:2 KorvelLoyaltyOnline:password"_s});
    EXPECT_TRUE(found.value(0).remedy.ui().contains(u"chmod 600 "_s + path(u"password"_s)));
}

TEST_F(SafetyTest, OfTheKeyIsThatNobodyElseReadsIt)
{
    givenConfiguration("[RestClient]\nclientKey=key.pem\n");
    givenFile(u"key.pem"_s, "k");
    EXPECT_EQ(briefly(judgeSafety(files(), effective())), QStringList());
    givenFile(u"key.pem"_s, "k", everybody);
    EXPECT_EQ(briefly(judgeSafety(files(), effective())),
        QStringList{u"warning checkSecretReadable till.ini:2 RestClient:clientKey"_s});
}

TEST_F(SafetyTest, OfAPasswordOnTheWayNeedsTlsToOtherMachines)
{
    struct Row
    {
        QByteArray url;
        QByteArray credentials;
        bool isSafe;
    };
    const QList<Row> rows{
        {"http://loyalty.example/", "user=u\npassword=p", false},
        {"http://10.0.0.1/", "user=u", false},
        {"http://10.0.0.1/", "password=p", false},
        {"http://loyalty.example/", "", true},
        {"https://loyalty.example/", "user=u\npassword=p", true},
        {"http://127.0.0.1:8080/", "user=u\npassword=p", true},
        {"http://127.0.0.2/", "user=u\npassword=p", true},
        {"http://localhost/", "user=u\npassword=p", true},
        {"http://[::1]/", "user=u\npassword=p", true},
        {"http://localhost.example/", "user=u\npassword=p", false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(QByteArray(row.url + ' ' + row.credentials).constData());
        givenConfiguration("[KorvelLoyaltyOnline]\nurl=" + row.url + '\n' + row.credentials);
        EXPECT_EQ(briefly(judgeSafety(files(), effective())),
            row.isSafe
                ? QStringList()
                : QStringList{
                    u"warning checkPlainAuthorisation till.ini:2 KorvelLoyaltyOnline:url"_s});
    }
}

} // namespace
