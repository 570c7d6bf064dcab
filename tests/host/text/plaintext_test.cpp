#include "host/text/plaintext.h"
#include "tests/support/printers.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

TEST(PlainTextTest, WhatIsNoCommandStays)
{
    const QString text = u"Скидка 10 % — «ёлка» \u00A0\u00AD\u200D😀\t№ 1\n–– $%1"_s;
    EXPECT_EQ(plaintext::block(text), text);
    EXPECT_EQ(plaintext::json(text.toUtf8()), text.toUtf8());
}

TEST(PlainTextTest, CommandsAreReplaced)
{
    EXPECT_EQ(plaintext::block(u"a\x1b[2J\b\u0007b\u009Bc\u007F"_s),
        u"a\uFFFD[2J\uFFFD\uFFFDb\uFFFDc\uFFFD"_s);
    EXPECT_EQ(plaintext::block(u"\u2029\u202A\u202E\u202F\u2065\u2066\u2069\u206A"_s),
        u"\n\uFFFD\uFFFD\u202F\u2065\uFFFD\uFFFD\u206A"_s);
}

TEST(PlainTextTest, LineBreaksOfEveryKindAreOne)
{
    EXPECT_EQ(plaintext::block(u"a\r\nb\rc\u2028d\u2029e\n\nf"_s), u"a\nb\nc\nd\ne\n\nf"_s);
    EXPECT_EQ(plaintext::line(u"a\r\nb\rc\u2028d\te\x1b"_s), u"a b c d e\uFFFD"_s);
}

TEST(PlainTextTest, JsonSaysTheSame)
{
    QString text;
    for (char16_t character = 0; character < u'\u2100'; ++character)
        text += character;
    const QJsonObject object{{u"text"_s, text}};
    const QByteArray json = plaintext::json(QJsonDocument(object).toJson());
    EXPECT_EQ(QJsonDocument::fromJson(json).object(), object);
    EXPECT_TRUE(json.contains("\\u007f\\u0080") && json.contains("\\u2028") && json.contains("\n"));
    EXPECT_FALSE(QString::fromUtf8(json).contains(u'\u009B'));
}
