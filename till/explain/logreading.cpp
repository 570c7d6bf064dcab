#include "till/explain/logreading.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

const QStringList alarming{u"WARN"_s, u"ERROR"_s, u"FATAL"_s};

bool isAlarming(const LogLine &line)
{
    return alarming.contains(line.level);
}

bool isOfMessage(const LogLine &line)
{
    return line.text.startsWith(u"message ");
}

// As the till's own log is laid out; one that was laid out otherwise tells nothing here.
std::optional<LogLine> read(const QString &line)
{
    static const QRegularExpression pattern(
        u"\\A(\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d,\\d{3}) (\\w+)\\s+(\\S+) - (.*)\\z"_s);
    const auto match = pattern.match(line);
    if (!match.hasMatch())
        return std::nullopt;
    return LogLine{QDateTime::fromString(match.captured(1), u"yyyy-MM-dd HH:mm:ss,zzz"_s),
        match.captured(2), match.captured(3), match.captured(4).trimmed()};
}

void readFile(const QString &fileName, QList<LogLine> &lines)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return;
    while (!file.atEnd())
        if (const auto line = read(QString::fromUtf8(file.readLine()).trimmed());
            line && (isAlarming(*line) || isOfMessage(*line)))
            lines.append(*line);
}

} // namespace

Logs::Logs(const QString &folder)
{
    for (QDirIterator files(folder, {u"*.log*"_s}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();)
        readFile(files.next(), m_lines);
    std::stable_sort(m_lines.begin(), m_lines.end(),
        [](const LogLine &left, const LogLine &right) { return left.time < right.time; });
}

QList<LogLine> Logs::concerning(
    const QDateTime &from, const QDateTime &to, const QStringList &ids) const
{
    QList<LogLine> found;
    for (const LogLine &line : m_lines) {
        const bool isMeant = std::any_of(ids.cbegin(), ids.cend(),
            [&line](const QString &id) { return line.text.contains(id); });
        if (isMeant
            || (isAlarming(line) && !isOfMessage(line) && line.time >= from && line.time <= to))
            found.append(line);
    }
    return found;
}

} // namespace till::explain
