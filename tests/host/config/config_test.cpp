#include "tests/host/config/configfixture.h"
#include "tests/support/logcapture.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {

class ConfigTest : public ConfigFixture
{ };

TEST_F(ConfigTest, IsEmptyBeforeAnythingIsRead)
{
    EXPECT_FALSE(m_config.contains(u"S:k"_s));
    EXPECT_EQ(m_config.getString(u"S:k"_s, u"default"_s), u"default"_s);
    EXPECT_TRUE(m_config.fileName().isEmpty());
    EXPECT_TRUE(m_config.getSections(u"*"_s).isEmpty());
    EXPECT_TRUE(m_config.getKeys(u"S"_s).isEmpty());
}

TEST_F(ConfigTest, FindsValuesBySectionAndKey)
{
    givenLoaded("[A.b]\nkey=1\n[A]\nkey=2\nKey=3\nsub:key=4\n");

    EXPECT_EQ(text(u"A.b:key"_s), u"1"_s);
    EXPECT_EQ(text(u"A:key"_s), u"2"_s);
    EXPECT_EQ(text(u"A:Key"_s), u"3"_s);
    EXPECT_EQ(text(u"A:sub:key"_s), u"4"_s);
    EXPECT_EQ(text(u"a:key"_s), u"absent"_s);
    EXPECT_EQ(m_config.fileName(), pathOf(mainFile));
}

TEST_F(ConfigTest, TellsWhereAValueStands)
{
    givenFile(mainFile + u".d/site.ini"_s, "[S]\nother=1\n\nkey=2\n");
    givenLoaded("[S]\nfirst=1\nkey=1\n");
    m_config.set(u"S:set"_s, u"1"_s);

    EXPECT_EQ(m_config.placeOf(u"S:first"_s), pathOf(mainFile) + u":2"_s);
    EXPECT_EQ(m_config.placeOf(u"S:key"_s), pathOf(mainFile + u".d/site.ini:4"_s));
    EXPECT_EQ(m_config.placeOf(u"S:set"_s), QString());
    EXPECT_EQ(m_config.placeOf(u"S:absent"_s), QString());
}

TEST_F(ConfigTest, TakesTheDefaultOnlyWhenTheKeyIsAbsent)
{
    givenLoaded("[S]\nempty=\n");

    EXPECT_TRUE(m_config.contains(u"S:empty"_s));
    EXPECT_EQ(m_config.getString(u"S:empty"_s, u"default"_s), u""_s);
    EXPECT_EQ(m_config.getStringList(u"S:empty"_s, {u"default"_s}), QStringList());
    EXPECT_EQ(m_config.getIntList(u"S:empty"_s, {1}), QList<int>());
    EXPECT_EQ(m_config.getPath(u"S:empty"_s, u"default"_s), u""_s);
    EXPECT_EQ(m_config.getIntList(u"S:absent"_s, {1}), QList<int>{1});
    EXPECT_EQ(m_config.getStringList(u"S:absent"_s, {u"default"_s}), QStringList{u"default"_s});
}

TEST_F(ConfigTest, TakesQuotesOffAndKeepsOuterBlanks)
{
    givenLoaded("[S]\na=\"  x  \"\nb=\"\nc=\"x\" y\nd=\"\"\ne=\"@file:/none\"\n");

    EXPECT_EQ(text(u"S:a"_s), u"  x  "_s);
    EXPECT_EQ(text(u"S:b"_s), u"\""_s);
    EXPECT_EQ(text(u"S:c"_s), u"\"x\" y"_s);
    EXPECT_EQ(text(u"S:d"_s), u""_s);
    EXPECT_EQ(text(u"S:e"_s), u"@file:/none"_s);
}

TEST_F(ConfigTest, ReadsWholeNumbersStrictly)
{
    constexpr int fallback = 77;
    const QList<std::pair<QString, int>> rows{{u"0"_s, 0}, {u"-15"_s, -15}, {u"+3"_s, 3},
        {u"007"_s, 7}, {u"2147483647"_s, 2147483647}, {u"-2147483648"_s, -2147483647 - 1},
        {u"2147483648"_s, fallback}, {u"1.5"_s, fallback}, {u"0x10"_s, fallback},
        {u"1,000"_s, fallback}, {u"15s"_s, fallback}, {u""_s, fallback}};
    for (const auto &[value, number] : rows) {
        SCOPED_TRACE(value.toStdString());
        m_config.set(u"S:k"_s, value);
        EXPECT_EQ(m_config.getInt(u"S:k"_s, fallback), number);
    }
}

TEST_F(ConfigTest, ReadsTruthValuesStrictly)
{
    const QList<std::pair<QString, bool>> rows{{u"true"_s, true}, {u"YES"_s, true}, {u"On"_s, true},
        {u"1"_s, true}, {u"false"_s, false}, {u"No"_s, false}, {u"OFF"_s, false}, {u"0"_s, false}};
    for (const auto &[value, truth] : rows) {
        SCOPED_TRACE(value.toStdString());
        m_config.set(u"S:k"_s, value);
        EXPECT_EQ(m_config.getBool(u"S:k"_s, !truth), truth);
    }
    EXPECT_TRUE(m_config.warnings().isEmpty());
}

TEST_F(ConfigTest, TakesTheDefaultForWhatIsNoTruthValue)
{
    for (const QString &value : {u"2"_s, u"y"_s, u"да"_s, u""_s, u"true false"_s}) {
        SCOPED_TRACE(value.toStdString());
        m_config.set(u"S:k"_s, value);
        EXPECT_TRUE(m_config.getBool(u"S:k"_s, true));
        EXPECT_FALSE(m_config.getBool(u"S:k"_s, false));
    }
}

TEST_F(ConfigTest, ReadsFiniteNumbersWithAPoint)
{
    constexpr double fallback = 7.5;
    const QList<std::pair<QString, double>> rows{{u"0.005"_s, 0.005}, {u"-2"_s, -2.0},
        {u"1e2"_s, 100.0}, {u"1,5"_s, fallback}, {u"nan"_s, fallback}, {u"inf"_s, fallback},
        {u""_s, fallback}, {u"10%"_s, fallback}};
    for (const auto &[value, number] : rows) {
        SCOPED_TRACE(value.toStdString());
        m_config.set(u"S:k"_s, value);
        EXPECT_DOUBLE_EQ(m_config.getDouble(u"S:k"_s, fallback), number);
    }
}

TEST_F(ConfigTest, SplitsListsAtCommasAndDropsEmptyItems)
{
    givenLoaded("[S]\ntexts= a b ,,c; d, \nnumbers=5, 7,x,9\n");

    EXPECT_EQ(m_config.getStringList(u"S:texts"_s, {}), (QStringList{u"a b"_s, u"c; d"_s}));
    EXPECT_EQ(m_config.getIntList(u"S:numbers"_s, {}), (QList<int>{5, 7, 9}));
    EXPECT_EQ(warnings(),
        QStringList{
            at(3) + u" ключ S:numbers: ожидались целые числа через запятую, «x» пропущено"});
}

TEST_F(ConfigTest, WarnsOncePerMalformedValue)
{
    const LogCapture log(u"poshost.config"_s);
    givenLoaded("[S]\nlimit=soon\nflag=maybe\nrate=x\n");

    for (int reading = 0; reading < 2; ++reading) {
        EXPECT_EQ(m_config.getInt(u"S:limit"_s, 15), 15);
        EXPECT_TRUE(m_config.getBool(u"S:flag"_s, true));
        EXPECT_DOUBLE_EQ(m_config.getDouble(u"S:rate"_s, 0.5), 0.5);
    }
    const QStringList expected{
        at(2) + u" ключ S:limit: ожидалось целое число, действует значение по умолчанию",
        at(3) + u" ключ S:flag: ожидалось true или false, действует значение по умолчанию",
        at(4) + u" ключ S:rate: ожидалось число, действует значение по умолчанию"};
    EXPECT_EQ(warnings(), expected);
    EXPECT_EQ(log.lines(),
        QStringList(expected).replaceInStrings(QRegularExpression(u"^"_s), u"WARN "_s));
}

TEST_F(ConfigTest, TellsTheLogItsWarningsOnceMore)
{
    givenLoaded("[S]\nk=1\nk=2\n");
    const LogCapture log(u"poshost.config"_s);

    m_config.logWarnings();

    EXPECT_EQ(log.lines(),
        QStringList{u"WARN "_s + at(3) + u" ключ S:k: уже задан в строке 2, действует этот"});
}

TEST_F(ConfigTest, CountsTheLastOfRepeatedKeysAndWarns)
{
    givenLoaded("[S]\nk=1\nl=1\n[T]\nk=2\n[S]\nk=3\n");

    EXPECT_EQ(text(u"S:k"_s), u"3"_s);
    EXPECT_EQ(m_config.getKeys(u"S"_s), (QStringList{u"k"_s, u"l"_s}));
    EXPECT_EQ(warnings(), QStringList{at(7) + u" ключ S:k: уже задан в строке 2, действует этот"});
}

TEST_F(ConfigTest, ListsSectionsThatMatchInFileOrder)
{
    givenLoaded("[P.x.2]\n[Q]\n[P.x.10]\nk=1\n[P]\n[P.x.2]\n[P.y/z]\n[Pax]\n");

    EXPECT_EQ(m_config.getSections(u"P.x.*"_s), (QStringList{u"P.x.2"_s, u"P.x.10"_s}));
    EXPECT_EQ(m_config.getSections(u"?"_s), (QStringList{u"Q"_s, u"P"_s}));
    EXPECT_EQ(m_config.getSections(u"P.*z"_s), QStringList{u"P.y/z"_s});
    EXPECT_EQ(m_config.getSections(u"P.[xy].*"_s), QStringList());
    EXPECT_EQ(m_config.getSections(u"P"_s), QStringList{u"P"_s});
    EXPECT_EQ(m_config.getSections(u"P.*.?"_s), QStringList{u"P.x.2"_s});
    EXPECT_EQ(m_config.getSections(u"*x*"_s), (QStringList{u"P.x.2"_s, u"P.x.10"_s, u"Pax"_s}));
    EXPECT_EQ(m_config.getSections(u"P.x.10**"_s), QStringList{u"P.x.10"_s});
    EXPECT_EQ(m_config.getSections(u"P.x.10?"_s), QStringList());
    EXPECT_EQ(m_config.getSections(u""_s), QStringList());
    EXPECT_EQ(m_config.getSections(u"*"_s).size(), 6);
}

TEST_F(ConfigTest, AWildcardTriesEachPlaceInALongName)
{
    const QString name = u"P."_s + QString(500'000, u'a') + u'b';
    givenLoaded('[' + name.toUtf8() + "]\n");

    EXPECT_EQ(m_config.getSections(u"*"_s).size(), 1);
    EXPECT_EQ(m_config.getSections(u"P.*b"_s).size(), 1);
    EXPECT_EQ(m_config.getSections(u"P.*ab*"_s).size(), 1);
    EXPECT_EQ(m_config.getSections(u"*a*a*a*a*a*a*a*a*a*a*c"_s), QStringList());
}

TEST_F(ConfigTest, ACharacterOfTwoUnitsIsOneToAWildcard)
{
    givenLoaded(u"[P.\U0001F600]\n"_s.toUtf8());

    EXPECT_EQ(m_config.getSections(u"P.?"_s).size(), 1);
    EXPECT_EQ(m_config.getSections(u"P.??"_s), QStringList());
}

TEST_F(ConfigTest, ListsKeysInFileOrder)
{
    givenLoaded("[S]\nkey2=a\nvalue=b\nkey10=c\nkey1=d\n");

    EXPECT_EQ(
        m_config.getKeys(u"S"_s), (QStringList{u"key2"_s, u"value"_s, u"key10"_s, u"key1"_s}));
    EXPECT_EQ(m_config.getKeys(u"s"_s), QStringList());
}

TEST_F(ConfigTest, ReadsPathsFromTheFolderOfTheirFile)
{
    givenLoaded("[S]\nrelative=data/catalogue.json\nabsolute=/srv/x\n");
    m_config.set(u"S:given"_s, u"here.json"_s);

    EXPECT_EQ(m_config.getPath(u"S:relative"_s, {}), pathOf(u"data/catalogue.json"_s));
    EXPECT_EQ(m_config.getPath(u"S:absolute"_s, {}), u"/srv/x"_s);
    EXPECT_EQ(m_config.getPath(u"S:given"_s, {}), u"here.json"_s);
    EXPECT_EQ(m_config.getPath(u"S:absent"_s, u"default"_s), u"default"_s);
}

TEST_F(ConfigTest, ReadsValuesFromOtherFiles)
{
    givenFile(u"secret"_s, " пароль=1 \r\n");
    givenFile(u"lines"_s, "a\nb\n\n");
    givenLoaded(
        "[S]\nrelative=@file:secret\nabsolute=@file: " + pathOf(u"lines"_s).toUtf8() + "\n");

    EXPECT_EQ(text(u"S:relative"_s), u" пароль=1 "_s);
    EXPECT_EQ(text(u"S:absolute"_s), u"a\nb\n"_s);
}

TEST_F(ConfigTest, SetValuesLieOverWhatIsRead)
{
    m_config.set(u"S:early"_s, u"set"_s);
    givenLoaded("[S]\nearly=read\nlate=read\n");
    m_config.set(u"S:late"_s, u"@file:raw"_s);

    EXPECT_EQ(text(u"S:early"_s), u"set"_s);
    EXPECT_EQ(text(u"S:late"_s), u"@file:raw"_s);
}

TEST_F(ConfigTest, WarnsAgainAboutAValueThatWasSetAnew)
{
    m_config.set(u"S:k"_s, u"x"_s);
    EXPECT_EQ(m_config.getInt(u"S:k"_s, 1), 1);
    m_config.set(u"S:k"_s, u"y"_s);
    EXPECT_EQ(m_config.getInt(u"S:k"_s, 1), 1);

    EXPECT_EQ(warnings(),
        QStringList(2, u"ключ S:k: ожидалось целое число, действует значение по умолчанию"_s));
}

} // namespace
