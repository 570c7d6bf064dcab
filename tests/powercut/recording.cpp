#include "tests/powercut/recording.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace powercut {

namespace {

constexpr int greatestWait = 60'000; // milliseconds, for a machine under load

QProcessEnvironment recorderEnvironment(const QString &folder, const QString &swallows)
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, QStringLiteral(POWERCUT_RECORDER));
    environment.insert(u"RECORDED_FOLDER"_s, folder);
    environment.insert(u"RECORDER_SWALLOWS"_s, swallows);
    // The address sanitizer wants to come first, and works behind the recorder too.
    const QString options = environment.value(u"ASAN_OPTIONS"_s);
    environment.insert(u"ASAN_OPTIONS"_s, options + u":verify_asan_link_order=0"_s);
    return environment;
}

} // namespace

QString fastFolder()
{
    const QFileInfo memory(u"/dev/shm"_s);
    return memory.isDir() && memory.isWritable() ? memory.filePath() : QDir::tempPath();
}

Recording record(
    const QString &program, QStringList words, const QString &swallows, const Tree &before)
{
    const QTemporaryDir temporary(fastFolder() + u"/powercut-XXXXXX");
    const QString folder = QFileInfo(temporary.path()).canonicalFilePath();
    build(before, folder);
    QProcess process;
    process.setProcessEnvironment(recorderEnvironment(folder, swallows));
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.start(program, words.replaceInStrings(u"FOLDER"_s, folder));
    if (!process.waitForFinished(greatestWait) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        throw std::runtime_error(
            "the recorded program failed: " + process.readAllStandardError().toStdString());
    return {readRecords(process.readAllStandardOutput()), readTree(folder), before};
}

Recording recordSubject(
    const QString &work, quint32 seed, const QString &swallows, const QString &manner)
{
    return record(QStringLiteral(POWERCUT_SUBJECT),
        {work, u"FOLDER"_s, QString::number(seed), manner}, swallows);
}

Recording recordResuming(const Tree &left)
{
    return record(QStringLiteral(POWERCUT_SUBJECT), {u"resume"_s, u"FOLDER"_s, u"0"_s}, {}, left);
}

} // namespace powercut
