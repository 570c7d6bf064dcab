// What fits into an archive, and what is said of the rest.

#include "till/support/contents.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using till::support::Contents;

namespace {

TEST(ContentsTest, WhatComesFirstIsTakenFirst)
{
    Contents contents(10);
    EXPECT_TRUE(contents.add(u"new"_s, "123456"));
    EXPECT_FALSE(contents.add(u"large"_s, "12345"));
    EXPECT_TRUE(contents.add(u"small"_s, "1234"));
    const auto manifest = contents.manifest();
    ASSERT_EQ(manifest.at("files").size(), 2U);
    EXPECT_EQ(manifest.at("files").at(0), (till::Json{{"name", "new"}, {"bytes", 6}}));
    ASSERT_EQ(manifest.at("leftOut").size(), 1U);
    EXPECT_EQ(manifest.at("leftOut").at(0),
        (till::Json{{"name", "large"}, {"bytes", 5}, {"reason", "size"}}));
}

TEST(ContentsTest, OfALongFileTheLastWholeLinesAreTaken)
{
    Contents contents(40); // a quarter of it for one file
    contents.addEnd(u"log"_s, "first\nsecond\nthird\n");
    ASSERT_EQ(contents.entries().size(), 1);
    EXPECT_EQ(contents.entries().constFirst().contents, "third\n");
    EXPECT_EQ(contents.manifest().at("leftOut").at(0),
        (till::Json{{"name", "log"}, {"bytes", 13}, {"reason", "beginning"}}));
}

TEST(ContentsTest, LinesThatJustFitAreTaken)
{
    Contents contents(24);
    contents.addEnd(u"log"_s, "first\nlast1\n");
    EXPECT_EQ(contents.entries().constFirst().contents, "last1\n");
    Contents large(48);
    large.addEnd(u"log"_s, "first\nlast1\n");
    EXPECT_EQ(large.entries().constFirst().contents, "first\nlast1\n");
    EXPECT_TRUE(large.manifest().at("leftOut").empty());
}

TEST(ContentsTest, ProblemsAreInTheManifest)
{
    Contents contents(1);
    EXPECT_FALSE(contents.hasProblems());
    contents.noteProblem(u"no queue"_s);
    EXPECT_TRUE(contents.hasProblems());
    EXPECT_EQ(contents.manifest().at("problems").at(0), "no queue");
}

} // namespace
