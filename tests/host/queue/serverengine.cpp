#include "host/queue/leaseowner.h"
#include "host/queue/server/queueserver.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/host/queue/queueengine.h"
#include "tests/host/queue/queuefixture.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

namespace queueengine {

namespace {

void run(const QStringList &statements)
{
    const QString name = u"between tests"_s;
    {
        auto database = connect(name);
        if (!database.open())
            qFatal("%s", qPrintable(database.lastError().text()));
        QSqlQuery query(database);
        for (const QString &statement : statements)
            if (!query.exec(statement))
                qFatal("%s", qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(name);
}

} // namespace

void begin()
{
    run({u"SET client_min_messages = error"_s, u"DROP SCHEMA public CASCADE"_s,
        u"CREATE SCHEMA public"_s});
}

QString setting()
{
    return PostgresServer::instance()->url();
}

QSqlDatabase connect(const QString &connectionName)
{
    const ServerAddress address = ServerAddress::read(setting());
    auto database = QSqlDatabase::addDatabase(u"QPSQL"_s, connectionName);
    database.setHostName(address.host);
    database.setPort(address.port);
    database.setUserName(address.user);
    database.setPassword(address.password);
    database.setDatabaseName(address.database);
    return database;
}

std::unique_ptr<MessageStore> openStore()
{
    return std::make_unique<MessageStore>(
        std::make_unique<QueueServer>(ServerAddress::read(setting())),
        QUuid::createUuid().toString());
}

void endLeases(qint64 process)
{
    // A statement of who was killed may still be at work.
    if (process != 0)
        run({u"DO $$ BEGIN WHILE (SELECT count(*) FROM pg_stat_activity WHERE application_name = "
             u"'korvel-queue-%1') > 0 LOOP PERFORM pg_sleep(0.001); "
             u"PERFORM pg_stat_clear_snapshot(); END LOOP; END $$"_s.arg(process)});
    const QString owner = process == 0 ? u"%"_s : QString::number(process) + u"@%";
    run({u"UPDATE messages SET lease_until = to_char(now() AT TIME ZONE 'UTC', "
         u"'YYYY-MM-DD\"T\"HH24:MI:SS.MS\"Z\"') WHERE state = 'sending' AND lease_owner LIKE '%1'"_s
             .arg(owner)});
}

} // namespace queueengine
