#include "host/queue/queuecheck.h"

#include "host/framework/currenttime.h"
#include "host/queue/messagerow.h"
#include "host/queue/queueerror.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace queuecheck {

namespace {

const QString lastReading = u"last_reading"_s;
constexpr qint64 secondsPerHour = 3600;

// The database removes its log when the last one who has it open closes it.
bool hasLog(const QString &fileName)
{
    return QFileInfo(fileName + u"-wal").size() > 0;
}

tr::Tr damageOfLength(QueueDatabase &database)
{
    const qint64 claimed
        = database.ask(u"page_count"_s).toLongLong() * database.ask(u"page_size"_s).toLongLong();
    const qint64 found = QFileInfo(database.fileName()).size();
    // What the log holds is not in the file yet.
    return found < claimed && !hasLog(database.fileName())
        ? tr::Tr(u"queueDamageLength"_s, u"%1 из %2 байт"_s)
              .arg(QString::number(found))
              .arg(QString::number(claimed))
        : tr::Tr();
}

bool wasReadLately(QueueDatabase &database)
{
    const QDateTime now = MockFactory<CurrentTime>::create()->currentDateTime();
    const QDateTime last = messagerow::readTime(database.fact(lastReading));
    // A reading in the future was made by a clock that ran ahead and says nothing.
    return last.isValid() && last <= now
        && last.addSecs(hoursBetweenReadings * secondsPerHour) > now;
}

bool isKnown(QueueDatabase &database)
{
    QSqlQuery table
        = database.run(u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'facts'"_s);
    return table.next();
}

bool isSmall(const QueueDatabase &database)
{
    return QFileInfo(database.fileName()).size() <= bytesAlwaysReadThrough;
}

// The quick check does not compare what is indexed with the rows, which a small file has time for.
Finding readThrough(QueueDatabase &database)
{
    const QString found
        = database.ask(isSmall(database) ? u"integrity_check(1)"_s : u"quick_check(1)"_s);
    return {found == u"ok"_s ? tr::Tr() : tr::Tr(tr::undefined, found), true};
}

Finding lookAtDatabase(const QString &fileName)
{
    QueueDatabase database(fileName, QueueDatabase::Use::Look);
    const tr::Tr length = damageOfLength(database);
    if (!length.isEmpty())
        return {length, false};
    if (isSmall(database) || hasLog(fileName) || !isKnown(database) || !wasReadLately(database))
        return readThrough(database);
    return {};
}

} // namespace

Finding lookAt(const QString &fileName)
{
    // These the database would take for a new file, and throw the log away.
    const QFileInfo file(fileName);
    if (!file.exists())
        return {hasLog(fileName) ? tr::Tr(u"queueDamageOnlyLog"_s, u"остался только её журнал"_s)
                                 : tr::Tr(),
            false};
    if (file.isFile() && file.size() == 0)
        return {{u"queueDamageEmpty"_s, u"она пуста"_s}, false};
    try {
        return lookAtDatabase(fileName);
    } catch (const QueueDamaged &error) {
        return {error.tr(), false};
    }
}

void rememberReading(QueueDatabase &database)
{
    // A small file is read through next time whatever it remembers, and a start that has nothing to
    // keep need not wait for the disk.
    if (isSmall(database) && wasReadLately(database))
        return;
    database.setFact(
        lastReading, messagerow::written(MockFactory<CurrentTime>::create()->currentDateTime()));
}

} // namespace queuecheck
