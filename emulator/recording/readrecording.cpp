#include "emulator/recording/readrecording.h"

#include "emulator/data/jsonvalue.h"
#include "emulator/recording/recordingerror.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RecordingError(u"%1: cannot be read: %2"_s.arg(path, file.errorString()));
    return file.readAll();
}

QByteArray messageOf(const QDir &folder, const QString &name, const QString &jsonFile)
{
    const QString path = folder.filePath(name);
    if (!QFileInfo::exists(path))
        throw RecordingError(u"%1: missing, although there is %2; copy it from where it was "
                             u"recorded, or remove %2 to "
                             "replay without this exchange"_s.arg(path, jsonFile));
    return contentOf(path);
}

RecordedExchange exchangeIn(const QString &path)
{
    try {
        return exchangeFromJson(contentOf(path));
    } catch (const DataError &error) {
        throw RecordingError(
            u"%1: %2; copy it from where it was recorded, or remove it to replay without this exchange"_s
                .arg(path, QString::fromUtf8(error.what())));
    }
}

RecordedExchange readExchange(const QDir &folder, const QRegularExpressionMatch &jsonFile)
{
    RecordedExchange exchange = exchangeIn(folder.filePath(jsonFile.captured()));
    exchange.number = jsonFile.captured(u"number"_s).toLongLong();
    const QString operation = jsonFile.captured(u"operation"_s);
    if (operation != u"unreadable")
        exchange.operation = operation;
    exchange.request = messageOf(folder, exchange.requestFile(), jsonFile.captured());
    if (exchange.status)
        exchange.answer = messageOf(folder, exchange.answerFile(), jsonFile.captured());
    return exchange;
}

/// "000005-soft" of "000005-soft-request.xml" and of what was not even finished writing.
QStringList namesWithoutJson(const QStringList &files)
{
    static const QRegularExpression piece(
        u"^(\\d{6,}-[a-z]+)(-request\\.xml|-answer\\.xml|\\.json\\.part)"_s);
    const QSet<QString> known(files.begin(), files.end());
    QStringList names;
    for (const QString &file : files) {
        const QString name = piece.match(file).captured(1);
        if (!name.isEmpty() && !known.contains(name + u".json"_s))
            names.append(name);
    }
    names.removeDuplicates();
    return names;
}

} // namespace

Recording readRecording(const QString &path)
{
    static const QRegularExpression jsonName(u"^(?<number>\\d{6,})-(?<operation>[a-z]+)\\.json$"_s);
    const QDir folder(path);
    if (!folder.exists())
        throw RecordingError(u"%1: there is no such folder"_s.arg(path));
    Recording recording;
    const QStringList files = folder.entryList(QDir::Files, QDir::Name);
    for (const QString &file : files) {
        if (const auto match = jsonName.match(file); match.hasMatch())
            recording.exchanges.push_back(readExchange(folder, match));
    }
    for (const QString &name : namesWithoutJson(files))
        recording.warnings.append(
            u"%1: passed over, its recording was cut off before its .json was written"_s.arg(
                folder.filePath(name)));
    if (recording.exchanges.empty())
        throw RecordingError(
            u"%1: holds no recorded exchange; name the folder that was given to --out"_s.arg(path));
    std::stable_sort(recording.exchanges.begin(), recording.exchanges.end(),
        [](const auto &a, const auto &b) { return a.number < b.number; });
    return recording;
}

} // namespace emulator
