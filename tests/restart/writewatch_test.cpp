// Writes are counted, and struck at.

#include "tests/restart/writewatch.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

class WriteWatchTest : public testing::Test
{
public:
    void whenWritten(const QString &name, const QByteArray &bytes = "x") const
    {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::Append));
        file.write(bytes);
    }

    void givenStrike(int write)
    {
        watch.strikeAt(write, [this] { ++strikes; });
    }

    // Looks at what has happened, as the watch's own thread does at some time.
    int whenCounted() { return watch.takeCount(); }

    QTemporaryDir temporary;
    QDir folder{temporary.path()};
    int strikes = 0;
    WriteWatch watch{{temporary.path()}};
};

TEST_F(WriteWatchTest, ChangesMovesAndRemovalsCount)
{
    whenWritten(u"a.new"_s);
    EXPECT_EQ(whenCounted(), 1);
    folder.rename(u"a.new"_s, u"a"_s);
    EXPECT_EQ(whenCounted(), 1);
    folder.remove(u"a"_s);
    EXPECT_EQ(whenCounted(), 1);
}

TEST_F(WriteWatchTest, WritesToOneFileInARowCountOnce)
{
    for (const char *name : {"a", "a", "b", "a"})
        whenWritten(QString::fromLatin1(name));
    EXPECT_EQ(whenCounted(), 3);
    whenWritten(u"a"_s);
    EXPECT_EQ(whenCounted(), 1);
}

TEST_F(WriteWatchTest, ACountBeginsAnewWhenItIsTaken)
{
    whenWritten(u"a"_s);
    whenWritten(u"b"_s);
    EXPECT_EQ(whenCounted(), 2);
    EXPECT_EQ(whenCounted(), 0);
}

TEST_F(WriteWatchTest, StrikesOnceAtTheWriteThatWasOrdered)
{
    givenStrike(2);
    whenWritten(u"a"_s);
    whenCounted();
    EXPECT_EQ(strikes, 0);
    whenWritten(u"b"_s);
    whenCounted();
    EXPECT_EQ(strikes, 1);
    whenWritten(u"c"_s);
    whenCounted();
    EXPECT_EQ(strikes, 1);
}

TEST_F(WriteWatchTest, WhatWasWrittenBeforeTheOrderDoesNotCount)
{
    whenWritten(u"a"_s);
    givenStrike(1);
    whenCounted();
    EXPECT_EQ(strikes, 0);
}

TEST_F(WriteWatchTest, AFolderThatIsMissingIsTold)
{
    EXPECT_THROW(WriteWatch({u"/nowhere/at/all"_s}), std::runtime_error);
}

} // namespace

} // namespace restart
