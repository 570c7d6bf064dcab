#include "tests/till/check/rulesfixture.h"

using namespace Qt::StringLiterals;
using namespace till::check;

namespace {

using KeysTest = RulesFixture;

QStringList remedies(const Findings &findings)
{
    QStringList texts;
    for (const Finding &finding : findings)
        texts.append(finding.remedy.ui());
    return texts;
}

TEST_F(KeysTest, TakesWhatTheReferenceHas)
{
    givenConfiguration("[Till]\nstate=x\n[KorvelLoyaltyOnline.ExtendedAttributes.price]\n"
                       "key1=a\nvalue1=b\nkeyless=c\n[Ui.korvelVerification]\n");
    EXPECT_EQ(briefly(judgeKeys(files())), QStringList());
}

TEST_F(KeysTest, TellsWhichKeyWasMeant)
{
    struct Row
    {
        QByteArray ini;
        QString place;
        QString remedy;
    };
    const QString meant = u"was %1 meant?"_s;
    const QString reference = u"take it out; docs/settings.md has all keys"_s;
    const QList<Row> rows{
        {"[Queue]\nwarnMinuts=1", u"till.ini:2 Queue:warnMinuts"_s,
            meant.arg(u"Queue:warnMinutes"_s)},
        {"[KorvelLoyaltyOnline]\nURL=1", u"till.ini:2 KorvelLoyaltyOnline:URL"_s,
            meant.arg(u"KorvelLoyaltyOnline:url"_s)},
        {"[KorvelLoyaltyOnline]\ncouponMessageDelimiter=1",
            u"till.ini:2 KorvelLoyaltyOnline:couponMessageDelimiter"_s,
            meant.arg(u"KorvelLoyaltyOnline:couponMessageDelimeter"_s)},
        {"[Queue]\n\nbreakerFailures=1", u"till.ini:3 Queue:breakerFailures"_s,
            meant.arg(u"RestClient:breakerFailures"_s)},
        {"[Till]\nentirelyElse=1", u"till.ini:2 Till:entirelyElse"_s, reference},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.ini.constData());
        givenConfiguration(row.ini);
        const Findings found = judgeKeys(files());
        EXPECT_EQ(briefly(found), QStringList{u"warning checkKeyUnknown "_s + row.place});
        EXPECT_EQ(remedies(found), QStringList{row.remedy});
    }
}

TEST_F(KeysTest, TellsWhichSectionWasMeant)
{
    givenConfiguration("[Quue]\nkeepDays=1\n[Other.Plugin]\nx=1");
    const Findings found = judgeKeys(files());

    EXPECT_EQ(briefly(found),
        (QStringList{u"warning checkSectionUnknown till.ini:1"_s,
            u"warning checkSectionUnknown till.ini:3"_s}));
    EXPECT_EQ(remedies(found),
        (QStringList{
            u"was [Queue] meant?"_s, u"take it out; docs/settings.md has all sections"_s}));
}

TEST_F(KeysTest, TellsWhatStandsThereTwice)
{
    givenConfiguration("[Queue]\nkeepDays=1\nkeepDays=2\n[Till]\n[Queue]\nparkDays=3");
    EXPECT_EQ(briefly(judgeKeys(files())),
        (QStringList{u"note checkSectionTwice till.ini:5"_s,
            u"warning checkKeyTwice till.ini:3 Queue:keepDays"_s}));
}

TEST_F(KeysTest, TellsWhatLiesOverTheMainFile)
{
    givenFile(u"till.ini.d/20.ini"_s, "[Queue]\nkeepDays=3\n");
    givenFile(u"till.ini.d/10.ini"_s, "[Queue]\n\nkeepDays=2\n");
    givenFile(u"till.ini.d/other.txt"_s, "[Queue]\nkeepDays=4\n");
    givenConfiguration("[Queue]\nkeepDays=1\n");

    EXPECT_EQ(briefly(judgeKeys(files())),
        (QStringList{u"ok checkOverlaid till.ini.d/10.ini:3 Queue:keepDays"_s,
            u"ok checkOverlaid till.ini.d/20.ini:2 Queue:keepDays"_s}));
    EXPECT_EQ(files().find(u"Queue:keepDays"_s)->text, u"3"_s);
}

TEST_F(KeysTest, TellsEveryLineThatCannotBeRead)
{
    givenFile(u"till.ini.d/a.ini"_s, "x=1\n");
    givenConfiguration("[Till\nno setting\n[Queue]\nkeepDays=1\n");
    EXPECT_EQ(briefly(files().unreadable()),
        (QStringList{u"error checkLineMalformed till.ini:1"_s,
            u"error checkLineMalformed till.ini:2"_s,
            u"error checkLineMalformed till.ini.d/a.ini:1"_s}));
    EXPECT_EQ(briefly(judgeKeys(files())), QStringList());
}

TEST_F(KeysTest, TellsAFileThatCannotBeRead)
{
    const SettingFiles missing(path(u"missing.ini"_s));
    EXPECT_EQ(
        briefly(missing.unreadable()), QStringList{u"error checkFileUnreadable missing.ini"_s});
}

} // namespace
