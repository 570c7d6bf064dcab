// JSON that people write by hand: what is read, and where it cannot be.

#include "host/storage/commentedjson.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray nested(int levels)
{
    return QByteArray(levels, '[') + QByteArray(levels, ']');
}

QByteArray nestedObjects(int levels)
{
    return QByteArray("{\"a\":").repeated(levels) + '1' + QByteArray(levels, '}');
}

struct Complaint
{
    QString place;
    QString reason;
};

Complaint complaintAbout(const QByteArray &contents)
{
    try {
        (void)commentedjson::parse(contents);
    } catch (const commentedjson::Error &error) {
        return {error.placeIn(u"file"_s), error.tr().ru()};
    }
    return {};
}

TEST(CommentedJsonTest, CommentsAreLeftOut)
{
    const QJsonValue value
        = commentedjson::parse("/* all\n of it */ {\"a\": // this\n [1, \"ж\"]}");
    EXPECT_EQ(value, QJsonValue(QJsonObject{{u"a"_s, QJsonArray{1, u"ж"_s}}}));
}

TEST(CommentedJsonTest, AValueMayStandAlone)
{
    EXPECT_EQ(commentedjson::parse("5"), QJsonValue(5));
}

TEST(CommentedJsonTest, WhatIsWrongIsToldByLineAndColumn)
{
    const Complaint complaint = complaintAbout("{\n \"ж\": [}");
    EXPECT_EQ(complaint.place, u"file:2:8"_s);
    EXPECT_TRUE(complaint.reason.startsWith(u"syntax error while parsing"_s))
        << qPrintable(complaint.reason);
}

TEST(CommentedJsonTest, ANumberThatIsTooLargeIsNamed)
{
    const Complaint complaint = complaintAbout("[1e999]");
    EXPECT_EQ(complaint.place, u"file"_s);
    EXPECT_EQ(complaint.reason, u"number overflow parsing '1e999'"_s);
}

TEST(CommentedJsonTest, OneHundredLevelsAreRead)
{
    EXPECT_TRUE(commentedjson::parse(nested(commentedjson::mostLevels)).isArray());
    EXPECT_TRUE(commentedjson::parse(nestedObjects(commentedjson::mostLevels)).isObject());
}

TEST(CommentedJsonTest, MoreLevelsAreRefusedHoweverManyTheyAre)
{
    for (const int levels : {commentedjson::mostLevels + 1, 300'000})
        for (const QByteArray &contents : {nested(levels), nestedObjects(levels)}) {
            const Complaint complaint = complaintAbout(contents);
            EXPECT_EQ(complaint.place, u"file"_s) << levels;
            EXPECT_EQ(complaint.reason, u"вложено глубже 100 уровней"_s) << levels;
        }
}

} // namespace
