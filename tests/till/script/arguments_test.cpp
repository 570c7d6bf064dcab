// The arguments of a command.

#include "till/core/cannotdo.h"
#include "till/script/arguments.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;
using till::Arguments;

namespace {

const QString usage = u"add CODE"_s;

QString whyNot(const std::function<void()> &taking)
{
    try {
        taking();
        return {};
    } catch (const till::CannotDo &error) {
        return error.text();
    }
}

TEST(ArgumentsTest, AreTakenInOrder)
{
    Arguments arguments({u"1001"_s, u"2.5"_s, u"3"_s}, usage);
    EXPECT_EQ(arguments.text(u"CODE"_s), u"1001"_s);
    EXPECT_DOUBLE_EQ(arguments.positiveNumber(u"QUANTITY"_s), 2.5);
    EXPECT_EQ(arguments.position(), 3);
    EXPECT_TRUE(arguments.empty());
    arguments.end();
}

TEST(ArgumentsTest, OptionsMayStandAnywhere)
{
    Arguments arguments(
        {u"raw=a=b"_s, u"1001"_s, u"price=5.5"_s}, usage, {u"raw"_s, u"price"_s, u"x"_s});
    EXPECT_EQ(arguments.text(u"CODE"_s), u"1001"_s);
    EXPECT_EQ(arguments.option(u"raw"_s), u"a=b"_s);
    EXPECT_EQ(arguments.numberOption(u"price"_s), 5.5);
    EXPECT_EQ(arguments.option(u"x"_s), std::nullopt);
    EXPECT_EQ(arguments.numberOption(u"x"_s), std::nullopt);
}

TEST(ArgumentsTest, WordsWithAnotherNameAreNoOptions)
{
    Arguments arguments({u"colour=red"_s}, usage, {u"raw"_s});
    EXPECT_EQ(arguments.text(u"CODE"_s), u"colour=red"_s);
}

TEST(ArgumentsTest, AnOptionCountsOnce)
{
    EXPECT_EQ(whyNot([] {
        Arguments({u"raw=1"_s, u"raw=2"_s}, usage, {u"raw"_s});
    }),
        u"raw= is given twice; write: add CODE"_s);
}

TEST(ArgumentsTest, TheRestIsJoined)
{
    Arguments arguments({u"status"_s, u"503"_s, u"always"_s}, usage);
    EXPECT_EQ(arguments.rest(u"WORDS"_s), u"status 503 always"_s);
    arguments.end();
}

struct Row
{
    QStringList words;
    std::function<void(Arguments &)> take;
    QString reason;
};

TEST(ArgumentsTest, WhatIsWrongIsSaidWithTheUsage)
{
    const auto quantity = [](Arguments &arguments) { arguments.positiveNumber(u"Q"_s); };
    const auto amount = [](Arguments &arguments) { arguments.number(u"A"_s); };
    const auto position = [](Arguments &arguments) { arguments.position(); };
    const auto text = [](Arguments &arguments) { arguments.text(u"T"_s); };
    const QList<Row> rows{{{}, text, u"T is missing"_s}, {{u""_s}, text, u"T is empty"_s},
        {{}, [](Arguments &arguments) { arguments.rest(u"W"_s); }, u"W are missing"_s},
        {{u"a"_s}, [](Arguments &arguments) { arguments.end(); }, u"\"a\" is one word too many"_s},
        {{u"0"_s}, quantity, u"Q must be greater than 0, it is 0"_s},
        {{u"-1"_s}, quantity, u"Q must be a number such as 2 or 0.742, it is -1"_s},
        {{u"1,5"_s}, quantity, u"Q must be a number such as 2 or 0.742, it is 1,5"_s},
        {{u"1e3"_s}, amount, u"A must be a number such as 2 or 0.742, it is 1e3"_s},
        {{u"inf"_s}, amount, u"A must be a number such as 2 or 0.742, it is inf"_s},
        {{u"1."_s}, amount, u"A must be a number such as 2 or 0.742, it is 1."_s},
        {{u"0"_s}, position, u"POSITION must be a number from 1, it is 0"_s},
        {{u"x"_s}, position, u"POSITION must be a number from 1, it is x"_s}};
    for (const Row &row : rows) {
        Arguments arguments(row.words, usage);
        EXPECT_EQ(whyNot([&] { row.take(arguments); }), row.reason + u"; write: add CODE"_s);
    }
}

TEST(ArgumentsTest, AnAmountMayBeZero)
{
    Arguments arguments({u"0"_s}, usage);
    EXPECT_DOUBLE_EQ(arguments.number(u"AMOUNT"_s), 0.0);
}

} // namespace
