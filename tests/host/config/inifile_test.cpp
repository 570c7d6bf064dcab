#include "host/config/configerror.h"
#include "host/config/inifile.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QString valueOf(const QByteArray &line)
{
    return ini::parse("[S]\n" + line, u"f"_s).first().settings.first().value;
}

QString errorOf(const QByteArray &bytes)
{
    try {
        const auto sections = ini::parse(bytes, u"till.ini"_s);
        return u"no error, %1 sections"_s.arg(sections.size());
    } catch (const ConfigError &error) {
        return QString::fromUtf8(error.what());
    }
}

TEST(IniFile, GivesValuesAsTheyStand)
{
    struct Row
    {
        QByteArray line;
        QString value;
    };
    const QByteArray longText(100000, 'x');
    const QList<Row> rows{
        {"k=v", u"v"_s},
        {"  k  =  v w  ", u"v w"_s},
        {"k=", u""_s},
        {"k=C:\\new\\table", u"C:\\new\\table"_s},
        {"k=a, b,,c", u"a, b,,c"_s},
        {"k=a ; b # c", u"a ; b # c"_s},
        {"k=a=b==c", u"a=b==c"_s},
        {"k=\"  quoted  \"", u"\"  quoted  \""_s},
        {"k=[v]", u"[v]"_s},
        {"k=%1 ${x}", u"%1 ${x}"_s},
        {"k=Хлеб", u"Хлеб"_s},
        {"k=v\r", u"v"_s},
        {"k=" + longText, QString::fromLatin1(longText)},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.line.left(40).toStdString());
        EXPECT_EQ(valueOf(row.line), row.value);
    }
}

TEST(IniFile, KeepsTheOrderOfSectionsAndSettings)
{
    const auto sections = ini::parse("[b]\nz=1\na=2\n[a.c]\n[b]\nz=3\n", u"f"_s);

    ASSERT_EQ(sections.size(), 3);
    EXPECT_EQ(sections[0].name, u"b"_s);
    EXPECT_EQ(sections[0].settings[0].key, u"z"_s);
    EXPECT_EQ(sections[0].settings[1].key, u"a"_s);
    EXPECT_EQ(sections[1].name, u"a.c"_s);
    EXPECT_EQ(sections[2].settings[0].value, u"3"_s);
}

TEST(IniFile, KnowsThePlaceOfEachValue)
{
    const auto sections = ini::parse("; top\n\n[S]\r\n# note\n key =  v\n", u"f"_s);

    const ini::Setting &setting = sections.first().settings.first();
    EXPECT_EQ(setting.line, 5);
    EXPECT_EQ(setting.column, 9);
}

TEST(IniFile, PassesOverCommentsAndBlankLines)
{
    const auto sections = ini::parse("# a=1\n;b=2\n \t\n[S]\n  # c=3\nd=4", u"f"_s);

    ASSERT_EQ(sections.size(), 1);
    EXPECT_EQ(sections.first().settings.size(), 1);
}

TEST(IniFile, ReadsPastAByteOrderMark)
{
    EXPECT_EQ(ini::parse("\xEF\xBB\xBF[S]\nk=v", u"f"_s).first().name, u"S"_s);
}

TEST(IniFile, SaysWhereAndWhyALineIsBroken)
{
    struct Row
    {
        QByteArray bytes;
        QString error;
    };
    const QList<Row> rows{
        {"[S]\nk=1\n  words",
            u"till.ini:3:3: не хватает «=»; напишите «ключ = значение» или поставьте «#» перед "
            "комментарием"_s},
        {"[S", u"till.ini:1:1: не хватает «]»; закройте ею имя секции"_s},
        {" [ ]", u"till.ini:1:2: у секции нет имени; напишите его между «[» и «]»"_s},
        {"[a:b]", u"till.ini:1:3: «:» в имени секции; выберите имя без неё"_s},
        {"[S] k=1",
            u"till.ini:1:4: текст после «]»; комментарии и настройки пишите в отдельных строках"_s},
        {"[S]\n=1", u"till.ini:2:1: у настройки нет ключа; напишите его перед «=»"_s},
        {"\nk=1", u"till.ini:2:1: настройка перед первой секцией; поставьте над ней «[секция]»"_s},
        {"[S]\nk=\xD5\xEB\xE5\xE1",
            u"till.ini:2:1: строка не в кодировке UTF-8; сохраните файл в UTF-8"_s},
        {"[S]\nk=\xD0", u"till.ini:2:1: строка не в кодировке UTF-8; сохраните файл в UTF-8"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.bytes.toStdString());
        EXPECT_EQ(errorOf(row.bytes), row.error);
    }
}

TEST(IniFile, ReadsOnBehindWhatIsWrong)
{
    const ini::Reading reading = ini::read("k=0\n[a]\nno setting\nk=1\n [b\nz=2\n");

    QStringList places;
    for (const ini::Defect &defect : reading.defects)
        places.append(u"%1:%2 %3"_s.arg(defect.line).arg(defect.column).arg(defect.text.id()));
    EXPECT_EQ(places,
        (QStringList{u"1:1 configSectionMissing"_s, u"3:1 configEqualsMissing"_s,
            u"5:2 configOpenSection"_s}));
    ASSERT_EQ(reading.sections.size(), 1);
    EXPECT_EQ(reading.sections[0].line, 2);
    EXPECT_EQ(reading.sections[0].settings.size(), 2);
    EXPECT_EQ(reading.sections[0].settings.last().line, 6);
}

} // namespace
