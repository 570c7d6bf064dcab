#include "tests/till/check/rulesfixture.h"
#include "till/check/machine.h"

#include <QDir>

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

constexpr qint64 megabyte = 1024 * 1024;

class MachineTest : public RulesFixture
{
public:
    static QStringList ids(const Findings &findings)
    {
        QStringList list;
        for (const Finding &finding : findings)
            list.append(nameOf(finding.severity) + u' ' + finding.what.id());
        return list;
    }
    QStringList idsOfState(const QString &name) { return ids(judgeStateFolder(path(name))); }
    void givenFolder(const QString &name, QFile::Permissions rights) const
    {
        EXPECT_TRUE(QDir().mkpath(path(name)));
        EXPECT_TRUE(QFile::setPermissions(path(name), rights));
    }
};

constexpr QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

TEST_F(MachineTest, HasAStateFolderThatOnlyTheTillLooksInto)
{
    givenFolder(u"own"_s, own);
    EXPECT_EQ(idsOfState(u"own"_s).value(0), u"ok checkStateGood"_s);
    givenFolder(u"shown"_s, own | QFile::ReadOther | QFile::ExeOther);
    EXPECT_EQ(idsOfState(u"shown"_s).value(0), u"warning checkStateReadable"_s);
}

TEST_F(MachineTest, MayHaveNoStateFolderYet)
{
    EXPECT_EQ(idsOfState(u"not/there/yet"_s).value(0), u"note checkStateMissing"_s);
    EXPECT_FALSE(QFile::exists(path(u"not"_s)));
}

TEST_F(MachineTest, CannotKeepItsStateInAFile)
{
    givenFile(u"file"_s, "x");
    EXPECT_EQ(idsOfState(u"file"_s), QStringList{u"error checkStateNoFolder"_s});
    EXPECT_EQ(idsOfState(u"file/below"_s), QStringList{u"error checkStateImpossible"_s});
}

TEST_F(MachineTest, IsToldHowMuchRoomThereIs)
{
    givenFolder(u"own"_s, own);
    EXPECT_TRUE(idsOfState(u"own"_s).value(1).endsWith(u" checkRoom"_s));
    EXPECT_TRUE(idsOfState(u"missing"_s).value(1).endsWith(u" checkRoom"_s));
    const auto severity = [](qint64 bytes) { return judgeRoom(bytes, u"x"_s)[0].severity; };
    EXPECT_EQ(severity(0), Severity::Error);
    EXPECT_EQ(severity(20 * megabyte - 1), Severity::Error);
    EXPECT_EQ(severity(20 * megabyte), Severity::Warning);
    EXPECT_EQ(severity(200 * megabyte - 1), Severity::Warning);
    EXPECT_EQ(severity(200 * megabyte), Severity::Ok);
}

TEST_F(MachineTest, MustCarryTheLettersOfTheCredentials)
{
    givenConfiguration("[KorvelLoyaltyOnline]\nuser=till\npassword=p@ss~\n");
    EXPECT_EQ(briefly(judgeCredentials(effective(), "ANSI_X3.4-1968")), QStringList());

    givenConfiguration("[KorvelLoyaltyOnline]\nuser=касса\npassword=pass\n");
    EXPECT_EQ(briefly(judgeCredentials(effective(), "utf-8")),
        QStringList{u"note checkCredentialsLetters till.ini:2 KorvelLoyaltyOnline:user"_s});
    EXPECT_EQ(briefly(judgeCredentials(effective(), "KOI8-R")),
        QStringList{u"warning checkCredentialsLetters till.ini:2 KorvelLoyaltyOnline:user"_s});

    givenConfiguration("[KorvelLoyaltyOnline]\nuser=till\npassword=пароль\n");
    const Findings found = judgeCredentials(effective(), "");
    EXPECT_EQ(briefly(found),
        QStringList{u"warning checkCredentialsLetters till.ini:3 KorvelLoyaltyOnline:password"_s});
    EXPECT_FALSE(found[0].what.ru().contains(u"пароль"_s));
}

TEST_F(MachineTest, TellsTheCodesetOfItsEnvironment)
{
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", "C.UTF-8");
    EXPECT_EQ(codesetOfEnvironment(), "UTF-8");
    qputenv("LC_ALL", "C");
    EXPECT_EQ(codesetOfEnvironment(), "ANSI_X3.4-1968");
    qputenv("LC_ALL", before);
}

TEST_F(MachineTest, ReadsTheCatalogue)
{
    EXPECT_EQ(briefly(judgeCatalogue(effective())),
        QStringList{u"note checkNoCatalogue Till:catalogue"_s});
    givenConfiguration("[Till]\ncatalogue=catalogue.json\n");
    EXPECT_EQ(briefly(judgeCatalogue(effective())), QStringList());
    givenFile(u"catalogue.json"_s, R"({"articles": [{"code": "1", "price": 2}]})");
    const Findings read = judgeCatalogue(effective());
    EXPECT_EQ(briefly(read), QStringList{u"ok checkCatalogue till.ini:2 Till:catalogue"_s});
    EXPECT_EQ(read[0].what.ui(), u"articles in the catalogue: 1"_s);
    givenFile(u"catalogue.json"_s, R"({"articles": [{"code": "1", "prise": 2}]})");
    const Findings wrong = judgeCatalogue(effective());
    EXPECT_EQ(
        briefly(wrong), QStringList{u"error checkCatalogueWrong till.ini:2 Till:catalogue"_s});
    EXPECT_TRUE(wrong[0].remedy.ui().contains(u"/articles/0"_s));
}

TEST_F(MachineTest, TriesThePrintTemplates)
{
    EXPECT_EQ(ids(judgeTemplates(effective())),
        (QStringList{u"ok checkTemplate"_s, u"ok checkTemplate"_s}));
    givenConfiguration("[TextPrinter]\ntemplates=.\n");
    givenFile(u"korvelloyaltyonline_coupon.mustache"_s, "{{#open}}");
    EXPECT_EQ(ids(judgeTemplates(effective())),
        (QStringList{u"ok checkTemplate"_s, u"error checkTemplateWrong"_s}));
}

TEST_F(MachineTest, LooksAtThePluginsMetadata)
{
    const QString folder = QStringLiteral(TILL_PLUGINS "/");
    EXPECT_EQ(ids(judgePlugin(folder + u"sellingplugin.so"_s)), QStringList{u"ok checkPlugin"_s});
    for (const QString &file :
        QStringList{folder + u"otherinterface.so"_s, folder + u"missing.so"_s, path(u"till.ini"_s)})
        EXPECT_EQ(ids(judgePlugin(file)), QStringList{u"error checkPluginWrong"_s});
}

} // namespace
