#include "till/explain/journalreading.h"

#include "till/explain/unreadable.h"

#include <QFile>
#include <QJsonDocument>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

JournalLine lineOf(const QJsonObject &object)
{
    return {QDateTime::fromString(object.value(u"time").toString(), Qt::ISODateWithMs),
        object.value(u"correlationId").toString(), object.value(u"document").toString(),
        object.value(u"kind").toString(), object};
}

bool holdsOne(const QByteArray &line, const QByteArrayList &quoted)
{
    return std::any_of(quoted.cbegin(), quoted.cend(),
        [&line](const QByteArray &text) { return line.contains(text); });
}

// A zero byte stands where the disk kept the length of the file and not its contents.
bool isWhole(const QByteArray &line)
{
    return line.startsWith('{') && line.endsWith('}') && !line.contains('\0');
}

} // namespace

JournalExtract readJournal(const QString &fileName, const QByteArrayList &wanted)
{
    JournalExtract extract;
    QFile file(fileName);
    if (!file.exists())
        return extract;
    if (!file.open(QIODevice::ReadOnly))
        throw unreadable(fileName, file.errorString());
    QByteArrayList quoted;
    for (const QByteArray &text : wanted)
        quoted.append('"' + text + '"');
    while (!file.atEnd()) {
        QByteArray line = file.readLine();
        const bool isEnded = line.endsWith('\n');
        line = line.trimmed();
        if (!isEnded || (!line.isEmpty() && !isWhole(line))) {
            extract.torn += isEnded ? 1 : 0;
            extract.endsTorn = !isEnded;
            continue;
        }
        if (!holdsOne(line, quoted))
            continue;
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.isEmpty())
            ++extract.torn;
        else
            extract.lines.append(lineOf(object));
    }
    return extract;
}

} // namespace till::explain
