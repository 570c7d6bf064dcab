#include "emulator/recording/readrecording.h"

#include "emulator/recording/recordingerror.h"
#include "emulator/recording/recordingfolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using testing::HasSubstr;

namespace emulator {
namespace {

class ReadRecordingTest : public testing::Test
{
protected:
    void givenExchange(qint64 number, std::optional<int> status = 200)
    {
        RecordedExchange exchange;
        exchange.number = number;
        exchange.operation = u"soft"_s;
        exchange.status = status;
        exchange.request = "request " + QByteArray::number(number);
        exchange.answer = "answer " + QByteArray::number(number);
        RecordingFolder(path()).write(exchange);
    }

    void givenFile(const QString &name, const QByteArray &content)
    {
        QFile file(directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    void thenRefused(const QString &folder, const QString &complaint)
    {
        try {
            readRecording(folder);
            FAIL() << "it was read";
        } catch (const RecordingError &error) {
            EXPECT_THAT(error.what(), HasSubstr(complaint.toStdString()));
        }
    }

    QString path() const { return directory.path(); }

    QTemporaryDir directory;
};

TEST_F(ReadRecordingTest, ReadsExchangesInTheOrderOfTheirNumbers)
{
    for (const qint64 number : {1'000'000, 2, 999'999})
        givenExchange(number);
    const Recording recording = readRecording(path());
    ASSERT_EQ(recording.exchanges.size(), 3u);
    EXPECT_EQ(recording.exchanges[0].request, "request 2");
    EXPECT_EQ(recording.exchanges[0].answer, "answer 2");
    EXPECT_EQ(recording.exchanges[0].operation, u"soft");
    EXPECT_EQ(recording.exchanges[1].number, 999'999);
    EXPECT_EQ(recording.exchanges[2].number, 1'000'000);
    EXPECT_EQ(recording.warnings, QStringList());
}

TEST_F(ReadRecordingTest, AFailureHasNoAnswerFile)
{
    givenExchange(1, std::nullopt);
    const Recording recording = readRecording(path());
    EXPECT_FALSE(recording.exchanges.at(0).status);
    EXPECT_FALSE(QFile::exists(directory.filePath(u"000001-soft-answer.xml"_s)));
}

TEST_F(ReadRecordingTest, PassesOverOtherFiles)
{
    givenExchange(1);
    givenFile(u"notes.json"_s, "{");
    givenFile(u"1-soft.json"_s, "{");
    EXPECT_EQ(readRecording(path()).exchanges.size(), 1u);
    EXPECT_EQ(readRecording(path()).warnings, QStringList());
}

TEST_F(ReadRecordingTest, PassesOverWhatWasCutOffWithAWarning)
{
    givenExchange(1);
    givenFile(u"000002-fiscal-request.xml"_s, "x");
    givenFile(u"000002-fiscal-answer.xml"_s, "x");
    givenFile(u"000003-soft-request.xml.part"_s, "x");
    givenFile(u"000004-soft.json.part"_s, "x");
    const Recording recording = readRecording(path());
    EXPECT_EQ(recording.exchanges.size(), 1u);
    ASSERT_EQ(recording.warnings.size(), 3);
    EXPECT_THAT(recording.warnings[0].toStdString(), HasSubstr("000002-fiscal: passed over"));
    EXPECT_THAT(recording.warnings[1].toStdString(), HasSubstr("000003-soft: passed over"));
    EXPECT_THAT(recording.warnings[2].toStdString(), HasSubstr("000004-soft: passed over"));
}

TEST_F(ReadRecordingTest, ExplainsAFolderThatIsNoRecording)
{
    const QString missing = directory.filePath(u"missing"_s);
    thenRefused(missing, missing + u": there is no such folder"_s);
    thenRefused(path(), path() + u": holds no recorded exchange"_s);
}

TEST_F(ReadRecordingTest, ExplainsHalfAnExchange)
{
    for (const QString &half : {u"000001-soft-request.xml"_s, u"000001-soft-answer.xml"_s}) {
        givenExchange(1);
        ASSERT_TRUE(QFile::remove(directory.filePath(half)));
        thenRefused(path(),
            directory.filePath(half) + u": missing, although there is 000001-soft.json; copy it"_s);
    }
}

TEST_F(ReadRecordingTest, ExplainsBrokenJson)
{
    givenExchange(1);
    givenFile(u"000001-soft.json"_s, "{\n\"status\": }");
    thenRefused(path(), directory.filePath(u"000001-soft.json"_s) + u": line 2, column 11"_s);
    givenFile(u"000001-soft.json"_s, "");
    thenRefused(path(), u"000001-soft.json: line 1, column 1"_s);
}

} // namespace
} // namespace emulator
