// A message that was kept has cost one flush of the disk, neither more nor fewer.

#include "tests/host/storage/files.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int messages = 1000;
const QString messageBytes = u"20480"_s;

class FlushesTest : public testing::Test
{
protected:
    double flushesForEach(const QStringList &words)
    {
        QProcess worker;
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LD_PRELOAD"_s, QStringLiteral(SYNC_COUNTER));
        // The address sanitizer wants to be loaded before anything else, and says so by ending.
        environment.insert(u"ASAN_OPTIONS"_s,
            environment.value(u"ASAN_OPTIONS"_s) + u":verify_asan_link_order=0"_s);
        environment.insert(u"SYNC_COUNT_FILE"_s, folder.filePath(u"count"_s));
        worker.setProcessEnvironment(environment);
        worker.start(QStringLiteral(QUEUE_WORKER), words);
        EXPECT_TRUE(worker.waitForFinished(-1));
        EXPECT_EQ(worker.exitCode(), 0);
        return files::contents(folder.filePath(u"count"_s)).trimmed().toDouble() / messages;
    }

    QTemporaryDir folder;
};

TEST_F(FlushesTest, EnqueueingFlushesOnceForEachMessage)
{
    const double flushes = flushesForEach({u"enqueue"_s, folder.filePath(u"state"_s), u"0"_s,
        QString::number(messages), messageBytes});
    EXPECT_GE(flushes, 1.0);
    EXPECT_LE(flushes, 1.1);
}

TEST_F(FlushesTest, CounterSeesWhoDoesNotFlush)
{
    EXPECT_LT(flushesForEach({u"careless"_s, folder.filePath(u"state"_s), QString::number(messages),
                  messageBytes}),
        0.5);
}

} // namespace
