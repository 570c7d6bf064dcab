#include "host/storage/journal.h"

#include "host/framework/currenttime.h"
#include "host/framework/session.h"
#include "host/framework/tr.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"
#include "host/text/plaintext.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;

namespace {

QJsonValue plain(const QVariant &value);

QJsonObject plainMap(const QVariantMap &map)
{
    QJsonObject members;
    for (auto entry = map.cbegin(); entry != map.cend(); ++entry)
        members.insert(entry.key(), plain(entry.value()));
    return members;
}

QJsonArray plainList(const QVariantList &list)
{
    QJsonArray items;
    for (const QVariant &item : list)
        items.append(plain(item));
    return items;
}

// For people and their tools: natural JSON, no types to bring back.
QJsonValue plain(const QVariant &value)
{
    if (value.typeId() == qMetaTypeId<tr::Tr>())
        return value.value<tr::Tr>().ru();
    if (value.typeId() == QMetaType::QVariantMap)
        return plainMap(value.toMap());
    if (value.typeId() == QMetaType::QVariantList)
        return plainList(value.toList());
    return QJsonValue::fromVariant(value);
}

QString now()
{
    const QDateTime local = MockFactory<CurrentTime>::create()->currentDateTime();
    return local.toOffsetFromUtc(local.offsetFromUtc()).toString(Qt::ISODateWithMs);
}

QByteArray lineFor(const QString &kind, const QVariantMap &values)
{
    const auto document = Singleton<Session>::instance()->getCurrentDocument();
    QJsonObject line = plainMap(values);
    line[u"time"_s] = now();
    line[u"kind"_s] = kind;
    line[u"correlationId"_s] = document ? QJsonValue(document->getCorrelationId()) : QJsonValue();
    line[u"document"_s] = document ? QJsonValue(document->getNumber()) : QJsonValue();
    return plaintext::json(QJsonDocument(line).toJson(QJsonDocument::Compact)) + '\n';
}

// What a power cut has torn off must not swallow what is written behind it.
QByteArray missingLineEnd(const QString &fileName)
{
    constexpr char lineEnd = '\n';
    QFile file(fileName);
    char last = lineEnd;
    if (file.open(QIODevice::ReadOnly) && file.seek(qMax(file.size() - 1, qint64{0})))
        file.getChar(&last);
    return last == lineEnd ? QByteArray() : QByteArray(1, lineEnd);
}

void warnOnce(const QString &failure)
{
    static QString warned;
    if (failure != warned && !failure.isEmpty())
        Log4Qt::LogManager::logger(u"poshost.journal"_s)->warn(failure);
    warned = failure;
}

} // namespace

void Journal::append(const QString &kind, const QVariantMap &values)
{
    const auto *const folder = Singleton<StateFolder>::instance();
    if (!folder->isSet())
        return;
    QString failure;
    try {
        atomicfile::makePrivateFolder(folder->path());
        const QString fileName = folder->journal();
        posix::File(fileName, O_WRONLY | O_APPEND | O_CREAT)
            .write(missingLineEnd(fileName) + lineFor(kind, values));
    } catch (const StorageError &error) {
        failure = QString::fromUtf8(error.what());
    }
    warnOnce(failure);
}
