// XML that would keep a reader busy is told from what the service sends.

#include "till/wire/exchangefacts.h"
#include "till/wire/readablemarkup.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray withAttributes(int count, const QByteArray &value = "\"1\"")
{
    QByteArray xml = "<a";
    for (int number = 0; number < count; ++number)
        xml += " b" + QByteArray::number(number) + '=' + value;
    return xml + "/>";
}

QByteArray nested(int levels, const QByteArray &innermost = {})
{
    return QByteArray("<a>").repeated(levels) + innermost + QByteArray("</a>").repeated(levels);
}

TEST(ReadableMarkupTest, EveryMessageOfTheProtocolIs)
{
    const QDir samples(QStringLiteral(SAMPLES));
    const QStringList names = samples.entryList({u"*.xml"_s});
    ASSERT_FALSE(names.isEmpty());
    for (const QString &name : names) {
        QFile file(samples.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(till::isReadableMarkup(file.readAll())) << name.toStdString();
    }
}

TEST(ReadableMarkupTest, TellsWhatCanBeReadFromWhatCannot)
{
    struct Row
    {
        QByteArray xml;
        bool isReadable;
    };
    const QList<Row> rows{
        {"", true},
        {"no markup at all", true},
        {withAttributes(64), true},
        {withAttributes(65), false},
        {withAttributes(64) + withAttributes(64), true},
        {withAttributes(64, "'>='"), true},
        {withAttributes(65, "'>'"), false},
        {"<a b=\"never ends", true},
        {"<a b='\">'/>" + withAttributes(65), false},
        {"<!-- \" --><a/>", true},
        {"<!-- \" -->" + withAttributes(65), false},
        {"<a><![CDATA[<!DOCTYPE \"]]></a>", true},
        {"<a><![CDATA[\"]]>" + withAttributes(65) + "</a>", false},
        {"<!DOCTYPE a><a/>", false},
        {"<?xml version='1.0'?><!DOCTYPE a [<!ENTITY e 'x'>]><a/>", false},
        {"<?xml version='1.0' encoding='UTF-8'?><a/>", true},
        {"<?xml version='1.0' encoding=\"windows-1251\"?><a/>", true},
        {"<?xml version='1.0' encoding = 'KOI8-R'?><a/>", true},
        {"<?xml version='1.0' encoding='UTF-7'?><a/>", false},
        {"<?xml version='1.0' encoding='utf-16'?><a/>", false},
        {QByteArray("<\0a\0/\0>\0", 8), false},
        {"<?pi \" ?>" + withAttributes(65), false},
        {nested(256), true},
        {nested(257), false},
        {nested(200) + nested(200), true},
        {nested(256, "<b/><b c='/'/><!-- <b> --><![CDATA[<b>]]>"), true},
        {nested(256, "<b c='1/'>"), false},
    };
    for (const Row &row : rows)
        EXPECT_EQ(till::isReadableMarkup(row.xml), row.isReadable)
            << row.xml.left(60).toStdString();
}

TEST(ReadableMarkupTest, NothingIsReadFromWhatIsNot)
{
    const QByteArray answer = "<ChequeResponse" + withAttributes(1'000'000).mid(2).chopped(2)
        + "><ReturnCode>0</ReturnCode></ChequeResponse>";
    EXPECT_FALSE(till::answerFacts(answer).returnCode);
    EXPECT_TRUE(till::answerFacts("<ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse>")
                    .returnCode);
}

} // namespace
