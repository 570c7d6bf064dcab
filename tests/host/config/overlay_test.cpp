#include "tests/host/config/configfixture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class OverlayTest : public ConfigFixture
{ };

TEST_F(OverlayTest, FilesOfTheFolderLieOverTheMainFileInNameOrder)
{
    givenFile(u"till.ini.d/20-till.ini"_s, "[S]\na=till\n");
    givenFile(u"till.ini.d/10-site.ini"_s, "[S]\na=site\nb=site\nnew=site\n[T]\nk=1\n");
    givenFile(u"till.ini.d/30-notes.txt"_s, "[S]\na=notes\n");
    givenLoaded("[S]\na=main\nb=main\nc=main\n");

    EXPECT_EQ(text(u"S:a"_s), u"till"_s);
    EXPECT_EQ(text(u"S:b"_s), u"site"_s);
    EXPECT_EQ(text(u"S:c"_s), u"main"_s);
    EXPECT_EQ(m_config.getKeys(u"S"_s), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"new"_s}));
    EXPECT_EQ(m_config.getSections(u"*"_s), (QStringList{u"S"_s, u"T"_s}));
}

TEST_F(OverlayTest, OverridingIsNoRepetition)
{
    givenFile(u"till.ini.d/site.ini"_s, "[S]\na=2\n");
    givenLoaded("[S]\na=1\n");

    EXPECT_TRUE(m_config.warnings().isEmpty());
}

TEST_F(OverlayTest, WarningsAndPathsNameTheFileThatCounts)
{
    givenFile(u"till.ini.d/site.ini"_s, "[S]\n\nlimit=soon\npath=x\n");
    givenLoaded("[S]\nlimit=1\npath=y\n");

    EXPECT_EQ(m_config.getInt(u"S:limit"_s, 15), 15);
    EXPECT_EQ(m_config.getPath(u"S:path"_s, {}), pathOf(u"till.ini.d/x"_s));
    EXPECT_TRUE(m_config.warnings().first().ru().startsWith(pathOf(u"till.ini.d/site.ini:3: "_s)));
}

TEST_F(OverlayTest, ABrokenFileLeavesTheConfigurationAsItWas)
{
    givenLoaded("[S]\na=old\n[Old]\n");
    givenFile(u"till.ini.d/site.ini"_s, "[S]\na=new\nbroken\n");

    EXPECT_TRUE(loadingError().startsWith(pathOf(u"till.ini.d/site.ini:3:1: "_s)));
    EXPECT_EQ(text(u"S:a"_s), u"old"_s);
    EXPECT_EQ(m_config.getSections(u"*"_s), (QStringList{u"S"_s, u"Old"_s}));
}

TEST_F(OverlayTest, LoadingAgainForgetsWhatWasReadBefore)
{
    givenLoaded("[S]\na=1\nlimit=x\n[Old]\nk=1\n");
    EXPECT_EQ(m_config.getInt(u"S:limit"_s, 1), 1);
    givenLoaded("[S]\nlimit=x\n");

    EXPECT_FALSE(m_config.contains(u"S:a"_s));
    EXPECT_FALSE(m_config.contains(u"Old:k"_s));
    EXPECT_TRUE(m_config.warnings().isEmpty());
    EXPECT_EQ(m_config.getInt(u"S:limit"_s, 1), 1);
    EXPECT_EQ(m_config.warnings().size(), 1);
}

TEST_F(OverlayTest, AFileThatCannotBeReadIsNamed)
{
    EXPECT_TRUE(loadingError().startsWith(pathOf(mainFile) + u": файл не читается: "));
}

TEST_F(OverlayTest, AValueFileThatCannotBeReadIsNamedWithItsSetting)
{
    givenFile(mainFile, "[S]\npassword = @file:none\n");

    EXPECT_TRUE(
        loadingError().startsWith(at(2) + u"12: " + pathOf(u"none"_s) + u": файл не читается: "));
}

TEST_F(OverlayTest, EveryFileThatWasReadIsKnown)
{
    givenFile(u"secret"_s, "x\n");
    givenFile(u"till.ini.d/10-site.ini"_s, "[S]\nuser=a\n");
    givenFile(mainFile, "[S]\npassword=@file:secret\nplain=\"@file:other\"\n");
    whenLoaded();
    whenLoaded();

    EXPECT_EQ(m_config.fileNames(),
        QStringList({pathOf(mainFile), pathOf(u"secret"_s), pathOf(u"till.ini.d/10-site.ini"_s)}));
}

TEST_F(OverlayTest, AFileOfAMebibyteIsReadAndNoLongerOne)
{
    constexpr qsizetype longest = 1024 * 1024;
    givenFile(mainFile, "[S]\nkey=@file:value\n");
    givenFile(u"value"_s, QByteArray(longest, 'x'));
    whenLoaded();
    EXPECT_EQ(m_config.getString(u"S:key"_s, {}).size(), longest);

    givenFile(u"value"_s, QByteArray(longest + 1, 'x'));
    EXPECT_EQ(loadingError(),
        at(2) + u"5: " + pathOf(u"value"_s)
            + u": в файле больше 1 МиБ, это не настройки; проверьте его путь");
}

TEST_F(OverlayTest, AFileThatNeverEndsIsNotRead)
{
    givenFile(mainFile, "[S]\nkey=@file:/dev/zero\n");
    EXPECT_TRUE(loadingError().contains(u"/dev/zero: в файле больше 1 МиБ"_s));
}

TEST_F(OverlayTest, AValueFileMustBeInUtf8)
{
    givenFile(u"secret"_s, "\xD5\xEB\n");
    givenFile(mainFile, "[S]\npassword=@file:secret\n");

    EXPECT_EQ(loadingError(),
        at(2) + u"10: " + pathOf(u"secret"_s)
            + u": файл не в кодировке UTF-8; сохраните его в UTF-8");
}

} // namespace
