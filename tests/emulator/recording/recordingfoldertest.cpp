#include "emulator/recording/recordingfolder.h"

#include "emulator/recording/newfile.h"
#include "emulator/recording/recordingerror.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

constexpr auto ownerReadsAndWrites
    = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;

class RecordingFolderTest : public testing::Test
{
protected:
    static RecordedExchange exchange(qint64 number)
    {
        RecordedExchange exchange;
        exchange.number = number;
        exchange.operation = u"balance"_s;
        exchange.status = 200;
        exchange.request = "request";
        exchange.answer = "answer";
        return exchange;
    }

    QStringList files() const { return QDir(path).entryList(QDir::Files | QDir::Hidden); }

    /// Of the files that have got their names since the watch began.
    static QStringList namesFrom(int watch)
    {
        alignas(inotify_event) char events[4096];
        const ssize_t size = ::read(watch, events, sizeof events);
        QStringList names;
        for (ssize_t place = 0; place < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(events + place);
            names.append(QFile::decodeName(event->name));
            place += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
        return names;
    }

    void givenFile(const QString &name) { writeNewFile(QDir(path).filePath(name), ""); }

    QTemporaryDir directory;
    const QString path = directory.filePath(u"recording"_s);
};

TEST_F(RecordingFolderTest, IsMadeForItsOwnerOnly)
{
    const RecordingFolder folder(path);
    EXPECT_EQ(
        QFileInfo(path).permissions(), ownerReadsAndWrites | QFile::ExeOwner | QFile::ExeUser);
}

TEST_F(RecordingFolderTest, HoldsFilesForItsOwnerOnly)
{
    RecordingFolder(path).write(exchange(1));
    const QStringList names = {
        u"000001-balance-answer.xml"_s, u"000001-balance-request.xml"_s, u"000001-balance.json"_s};
    EXPECT_EQ(files(), names);
    for (const QString &name : names)
        EXPECT_EQ(QFileInfo(QDir(path).filePath(name)).permissions(), ownerReadsAndWrites);
}

TEST_F(RecordingFolderTest, GoesOnWithTheNumbers)
{
    RecordingFolder folder(path);
    EXPECT_EQ(folder.takeNumber(), 1);
    EXPECT_EQ(folder.takeNumber(), 2);
}

TEST_F(RecordingFolderTest, GoesOnBehindEverythingThatIsThere)
{
    RecordingFolder(path).write(exchange(7));
    EXPECT_EQ(RecordingFolder(path).takeNumber(), 8);
    givenFile(u"000012-soft-request.xml.part"_s);
    EXPECT_EQ(RecordingFolder(path).takeNumber(), 13);
    givenFile(u"1000000-soft.json"_s);
    EXPECT_EQ(RecordingFolder(path).takeNumber(), 1'000'001);
}

TEST_F(RecordingFolderTest, HasOneRecorderAtATime)
{
    const RecordingFolder first(path);
    try {
        const RecordingFolder second(path);
        FAIL() << "both have it";
    } catch (const RecordingError &error) {
        EXPECT_THAT(error.what(), HasSubstr("another recorder"));
    }
}

TEST_F(RecordingFolderTest, ThatCannotBeUsedIsNamed)
{
    writeNewFile(directory.filePath(u"file"_s), "");
    for (const QString &wrong :
        {directory.filePath(u"file"_s), directory.filePath(u"no/where"_s)}) {
        try {
            const RecordingFolder folder(wrong);
            FAIL() << qPrintable(wrong);
        } catch (const RecordingError &error) {
            EXPECT_THAT(error.what(), HasSubstr(wrong.toStdString()));
        }
    }
}

TEST_F(RecordingFolderTest, WritesTheJsonFileLast)
{
    const RecordingFolder folder(path);
    const int watch = ::inotify_init1(IN_CLOEXEC);
    ASSERT_GE(::inotify_add_watch(watch, QFile::encodeName(path).constData(), IN_MOVED_TO), 0);
    folder.write(exchange(1));
    EXPECT_EQ(namesFrom(watch),
        (QStringList{u"000001-balance-request.xml"_s, u"000001-balance-answer.xml"_s,
            u"000001-balance.json"_s}));
    ::close(watch);
}

TEST_F(RecordingFolderTest, KeepsNothingOfAnExchangeThatCannotBeWritten)
{
    const RecordingFolder folder(path);
    // A folder stands where the last of its files would go.
    ASSERT_TRUE(QDir(path).mkdir(u"000001-balance.json"_s));
    EXPECT_THROW(folder.write(exchange(1)), RecordingError);
    EXPECT_EQ(files(), QStringList());
}

} // namespace
} // namespace emulator
