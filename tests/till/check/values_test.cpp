#include "tests/till/check/rulesfixture.h"

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

using ValuesTest = RulesFixture;

TEST_F(ValuesTest, AreJudgedByTheTypeOfTheirSetting)
{
    struct Row
    {
        QByteArray line;
        QString found; ///< empty: nothing
    };
    const QList<Row> rows{
        {"timeout=10", {}},
        {"timeout=ten", u"error checkNotInteger"_s},
        {"timeout=", u"error checkNotInteger"_s},
        {"timeout=0", u"warning checkOutOfRange"_s},
        {"technicalCardSuffixLength=18", {}},
        {"technicalCardSuffixLength=19", u"warning checkOutOfRange"_s},
        {"indexForMinRetailPrice=-7", {}},
        {"noConfirmationBonusLimit=-1", {}},
        {"noConfirmationBonusLimit=99.5", {}},
        {"noConfirmationBonusLimit=99,5", u"error checkNotNumber"_s},
        {"noConfirmationBonusLimit=-1.5", u"warning checkOutOfRange"_s},
        {"useConfirmation=Yes", {}},
        {"useConfirmation=perhaps", u"error checkNotBoolean"_s},
        {"errorsList=1, 2,,3", {}},
        {"errorsList=", {}},
        {"errorsList=1,x,3,y", u"error checkNotIntegers; error checkNotIntegers"_s},
        {"url=https://loyalty.example/x", {}},
        {"url=loyalty.example", u"error checkNotUrl"_s},
        {"url=ftp://loyalty.example", u"error checkNotUrl"_s},
        {"url=https://", u"error checkNotUrl"_s},
        {"pos=${shop}-${document.till}", {}},
        {"pos=${shopp}", u"warning checkMaskUnknown"_s},
        {"pos=${shop", u"warning checkMaskOpen"_s},
        {"stickersActionMarker=${anything", {}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.line.constData());
        givenConfiguration("[KorvelLoyaltyOnline]\n" + row.line);
        QStringList found = briefly(judgeValues(files(), effective()));
        const QString place = u" till.ini:2 KorvelLoyaltyOnline:"_s
            + QString::fromUtf8(row.line.left(row.line.indexOf('=')));
        EXPECT_EQ(found.replaceInStrings(place, QString()).join(u"; "_s), row.found);
    }
}

TEST_F(ValuesTest, NameFilesFoldersAndDatabases)
{
    givenFile(u"there.pem"_s, "x");
    struct Row
    {
        QByteArray ini;
        QString found;
    };
    const QList<Row> rows{
        {"[RestClient]\ncaFile=there.pem", {}},
        {"[RestClient]\ncaFile=", {}},
        {"[RestClient]\ncaFile=missing.pem", u"error checkFileMissing"_s},
        {"[RestClient]\ncaFile=.", u"error checkFileMissing"_s},
        {"[TextPrinter]\ntemplates=.", {}},
        {"[TextPrinter]\ntemplates=missing", u"error checkFolderMissing"_s},
        {"[Till]\nstate=missing", {}},
        {"[Till]\nlanguage=en", {}},
        {"[Till]\nlanguage=de", u"error checkNotAmong"_s},
        {"[Queue]\ndatabase=any/file", {}},
        {"[Queue]\ndatabase=postgresql://u:p@host/name", {}},
        {"[Queue]\ndatabase=mysql://u:p@host/name", u"error checkNotDatabase"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.ini.constData());
        givenConfiguration(row.ini);
        EXPECT_EQ(briefly(judgeValues(files(), effective())).join(u"; "_s).section(u' ', 0, 1),
            row.found);
    }
}

TEST_F(ValuesTest, CountOnlyWhereNothingLiesOverThem)
{
    givenFile(u"till.ini.d/over.ini"_s, "[KorvelLoyaltyOnline]\n\ntimeout=10\n");
    givenConfiguration("[KorvelLoyaltyOnline]\ntimeout=ten\n");
    EXPECT_EQ(briefly(judgeValues(files(), effective())), QStringList());

    givenFile(u"till.ini.d/over.ini"_s, "[KorvelLoyaltyOnline]\n\ntimeout=ten\n");
    givenConfiguration("[KorvelLoyaltyOnline]\ntimeout=10\n");
    EXPECT_EQ(briefly(judgeValues(files(), effective())),
        QStringList{u"error checkNotInteger till.ini.d/over.ini:3 KorvelLoyaltyOnline:timeout"_s});
}

TEST_F(ValuesTest, CountOnceWhereAFileHasTheirKeyTwice)
{
    givenConfiguration("[KorvelLoyaltyOnline]\ntimeout=10\ntimeout=ten\n");
    EXPECT_EQ(briefly(judgeValues(files(), effective())),
        QStringList{u"error checkNotInteger till.ini:3 KorvelLoyaltyOnline:timeout"_s});
}

TEST_F(ValuesTest, ThatAreNotThereTakeTheirDefault)
{
    givenConfiguration("[Queue]\nkeepDays=1\n");
    const QStringList found = briefly(tellDefaults(effective()));

    EXPECT_TRUE(found.contains(u"ok checkDefault Queue:parkDays"_s));
    EXPECT_FALSE(found.contains(u"ok checkDefault Queue:keepDays"_s));
    EXPECT_FALSE(found.join(u' ').contains(u'*'));
}

TEST_F(ValuesTest, OfDefaultsAreToldAsTheReferenceHasThem)
{
    QMap<QString, QString> texts;
    for (const Finding &finding : tellDefaults(effective()))
        texts.insert(finding.place.key, finding.what.ru());
    EXPECT_EQ(texts.value(u"Queue:keepDays"_s), u"не задано, действует: 30"_s);
    EXPECT_EQ(texts.value(u"RestClient:caFile"_s), u"не задано, действует: системные"_s);
    EXPECT_EQ(
        effective().text(u"KorvelLoyaltyOnline:markdownCouponPrefix"_s), u"на уценку %1% № "_s);
    EXPECT_EQ(effective().number(u"KorvelLoyaltyOnline:timeout"_s), 15);
}

} // namespace
