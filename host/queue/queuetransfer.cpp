// Messages go from one machine's queue to another's in a file.

#include "host/queue/authorization.h"
#include "host/queue/messagejson.h"
#include "host/queue/messagerow.h"
#include "host/queue/messagestore.h"
#include "host/queue/messagetable.h"
#include "host/queue/queueoffice.h"
#include "host/storage/atomicfile.h"
#include "host/storage/posixfile.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <fcntl.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int format = 1;
const QString formatMember = u"queueExport"_s;
const QString countMember = u"messages"_s;
const QString exported
    = u"state IN ('pending', 'parked', 'refused') AND moved_to = '' AND number > ?"_s;

QByteArray line(const QJsonObject &members)
{
    return QJsonDocument(members).toJson(QJsonDocument::Compact) + '\n';
}

[[noreturn]] void failReading(const QString &fileName, const tr::Tr &why)
{
    throw StorageError(tr::Tr(u"queueFileNotTaken"_s, u"%1: %2; из него ничего не взято"_s)
                           .arg(fileName)
                           .arg(why));
}

QJsonObject readObject(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

/// Reads a file of exported messages from its head to its end.
/// @throws StorageError when it is none, or not whole.
void readExport(const QString &fileName, const std::function<void(QueueMessage &)> &take)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        failReading(fileName,
            tr::Tr(u"queueFileUnreadable"_s, u"не читается: %1"_s).arg(file.errorString()));
    if (readObject(file.readLine())[formatMember].toInt() != format)
        failReading(
            fileName, {u"queueFileForeign"_s, u"это не файл выгруженных сообщений этой версии"_s});
    int count = 0;
    while (!file.atEnd()) {
        const QByteArray text = file.readLine();
        if (auto message = messagejson::read(text)) {
            take(*message);
            ++count;
            continue;
        }
        const QJsonObject end = readObject(text);
        if (file.atEnd() && end[countMember].toInt(-1) == count)
            return;
        failReading(fileName,
            tr::Tr(u"queueFileLineDamaged"_s, u"строка %1 повреждена"_s)
                .arg(QString::number(count + 2)));
    }
    failReading(fileName, {u"queueFileCut"_s, u"не хватает конца"_s});
}

/// Writes the messages behind each other and marks them as moved.
int writeAll(QueueDatabase &database, posix::File &file, const QString &fileName)
{
    int count = 0;
    qint64 behind = 0;
    for (;;) {
        QSqlQuery row = database.run(messagetable::select(messagerow::columns()) + u"WHERE "
                + exported + u" ORDER BY number LIMIT 1"_s,
            {behind});
        if (!row.next())
            return count;
        QueueMessage message = messagetable::messageFrom(row);
        row.finish();
        behind = message.number;
        authorization::takeOff(message);
        file.write(messagejson::line(message));
        database.run(u"UPDATE messages SET state = 'parked', moved_to = ? WHERE number = ?"_s,
            {fileName, behind});
        ++count;
    }
}

bool takeBack(QueueDatabase &database, const QueueMessage &message)
{
    return database
               .run(u"UPDATE messages SET state = ?, moved_to = '' WHERE id = ? AND "
                    u"moved_to <> ''"_s,
                   {stateName(message.state), message.id})
               .numRowsAffected()
        > 0;
}

} // namespace

int QueueOffice::exportTo(const QString &fileName)
{
    if (QFileInfo::exists(fileName))
        throw StorageError(
            tr::Tr(u"queueFileThere"_s, u"%1: такой файл уже есть; выберите другое имя"_s)
                .arg(fileName));
    const QString made = fileName + u".new";
    int count = 0;
    try {
        posix::File file(made, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
        file.write(line({{formatMember, format}}));
        QueueTransaction transaction(m_database);
        count = writeAll(m_database, file, QFileInfo(fileName).absoluteFilePath());
        file.write(line({{countMember, count}}));
        file.sync();
        transaction.commit();
    } catch (const StorageError &) {
        QFile::remove(made);
        throw;
    }
    // From here on the messages are the file's: killed now, it is there whole under the other name.
    atomicfile::move(made, fileName);
    return count;
}

int QueueOffice::importFrom(const QString &fileName, const QString &authorization)
{
    int taken = 0;
    // Taken back as a whole where the file proves not to be whole.
    QueueTransaction transaction(m_database);
    readExport(fileName, [this, &taken, &authorization](QueueMessage &message) {
        authorization::putOn(message, authorization);
        if (takeBack(m_database, message) || messagetable::insert(m_database, message))
            ++taken;
    });
    transaction.commit();
    return taken;
}
