// The transcript's file.

#include "host/storage/storageerror.h"
#include "till/core/cannotdo.h"
#include "till/transcript/transcriptfile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class TranscriptFileTest : public testing::Test
{
public:
    QByteArray contents() const
    {
        QFile file(name());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString name() const { return m_folder.filePath(u"transcript"_s); }

private:
    QTemporaryDir m_folder;
};

TEST_F(TranscriptFileTest, EachObjectIsALineAndThereAtOnce)
{
    till::TranscriptFile transcript(name());
    transcript.write(till::Json{{"line", 1}});
    EXPECT_EQ(contents(), "{\"line\":1}\n");
    transcript.write(till::Json{{"line", 2}});
    EXPECT_EQ(contents(), "{\"line\":1}\n{\"line\":2}\n");
}

TEST_F(TranscriptFileTest, AnOldFileIsEmptied)
{
    till::TranscriptFile(name()).write(1);
    const till::TranscriptFile again(name());
    EXPECT_EQ(contents(), "");
}

TEST_F(TranscriptFileTest, ANewFileIsItsOwnersAloneAndAnOldOneKeepsItsRights)
{
    constexpr auto others
        = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    till::TranscriptFile(name()).write(1);
    EXPECT_EQ(QFile::permissions(name()) & others, QFile::Permissions());

    QFile::setPermissions(name(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    till::TranscriptFile(name()).write(1);
    EXPECT_EQ(QFile::permissions(name()) & others, QFile::ReadGroup);
}

TEST_F(TranscriptFileTest, AFileThatCannotBeMadeIsAnError)
{
    EXPECT_THROW(till::TranscriptFile(name() + u"/x"_s), till::CannotDo);
}

TEST_F(TranscriptFileTest, AFullDiskIsAnError)
{
    till::TranscriptFile transcript(u"/dev/full"_s);
    EXPECT_THROW(transcript.write(1), StorageError);
}

} // namespace
