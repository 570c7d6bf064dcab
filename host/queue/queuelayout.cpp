#include "host/queue/queuelayout.h"

#include "host/storage/storageerror.h"

using namespace Qt::Literals::StringLiterals;

namespace queuelayout {

namespace {

constexpr int thisLayout = 3;
constexpr int firstLayoutWithFacts = 2;
constexpr int oldestLayoutThatCopes = 1;

const QStringList firstLayout{uR"(
    CREATE TABLE messages (
        number INTEGER PRIMARY KEY AUTOINCREMENT,
        id TEXT NOT NULL UNIQUE,
        queue TEXT NOT NULL,
        remark TEXT NOT NULL,
        url TEXT NOT NULL,
        headers TEXT NOT NULL,
        body BLOB NOT NULL,
        correlation_id TEXT NOT NULL,
        enqueued TEXT NOT NULL,
        attempts INTEGER NOT NULL,
        next_attempt TEXT NOT NULL,
        last_error TEXT NOT NULL,
        state TEXT NOT NULL
            CHECK (state IN ('pending', 'sending', 'delivered', 'refused', 'parked')),
        answer BLOB NOT NULL
    ))"_s,
    u"CREATE INDEX messages_by_state ON messages (state, number)"_s};

// What the program of the first layout leaves out of its statements has a default, and what it does
// not know of, triggers do. The index takes the place of one whose columns it begins with: a
// message is found without reading the long rows of those that are passed over.
const QStringList secondLayout{
    u"ALTER TABLE messages ADD COLUMN lane TEXT NOT NULL DEFAULT ''"_s,
    u"ALTER TABLE messages ADD COLUMN last_attempt TEXT NOT NULL DEFAULT ''"_s,
    u"ALTER TABLE messages ADD COLUMN lease_owner TEXT NOT NULL DEFAULT ''"_s,
    u"ALTER TABLE messages ADD COLUMN lease_until TEXT NOT NULL DEFAULT ''"_s,
    u"ALTER TABLE messages ADD COLUMN deliverers_lost INTEGER NOT NULL DEFAULT 0"_s,
    u"ALTER TABLE messages ADD COLUMN last_code INTEGER NOT NULL DEFAULT 0"_s,
    u"ALTER TABLE messages ADD COLUMN answered_otherwise_since TEXT NOT NULL DEFAULT ''"_s,
    u"ALTER TABLE messages ADD COLUMN settled TEXT NOT NULL DEFAULT ''"_s,
    u"ALTER TABLE messages ADD COLUMN moved_to TEXT NOT NULL DEFAULT ''"_s,
    u"DROP INDEX messages_by_state"_s,
    u"CREATE INDEX messages_by_state ON messages (state, number, next_attempt, lane)"_s,
    u"CREATE INDEX messages_delivered ON messages (settled) WHERE state = 'delivered'"_s,
    u"CREATE TABLE facts (name TEXT NOT NULL PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID"_s,
    u"CREATE TABLE counts (state TEXT NOT NULL PRIMARY KEY, messages INTEGER NOT NULL) "
    u"WITHOUT ROWID"_s,
    u"INSERT INTO counts VALUES ('pending', 0), ('sending', 0), ('delivered', 0), "
    u"('refused', 0), ('parked', 0)"_s,
    u"UPDATE counts SET messages = "
    u"(SELECT count(*) FROM messages WHERE messages.state = counts.state)"_s,
    u"CREATE TRIGGER messages_count_new AFTER INSERT ON messages BEGIN "
    u"UPDATE counts SET messages = messages + 1 WHERE state = new.state; END"_s,
    u"CREATE TRIGGER messages_count_changed AFTER UPDATE OF state ON messages "
    u"WHEN old.state <> new.state BEGIN "
    u"UPDATE counts SET messages = messages - 1 WHERE state = old.state; "
    u"UPDATE counts SET messages = messages + 1 WHERE state = new.state; END"_s,
    u"CREATE TRIGGER messages_count_gone AFTER DELETE ON messages BEGIN "
    u"UPDATE counts SET messages = messages - 1 WHERE state = old.state; END"_s,
};

// What is asked for by document, and what was moved away, among a million others.
const QStringList thirdLayout{
    u"CREATE INDEX messages_of_documents ON messages (correlation_id, number) "
    u"WHERE correlation_id <> ''"_s,
    u"CREATE INDEX messages_moved ON messages (number) WHERE moved_to <> ''"_s,
};

// The time of an attempt is what the first layout's program notes for every outcome.
const QString settleWhatTheFirstLayoutDelivered
    = u"UPDATE messages SET settled = next_attempt WHERE state = 'delivered' AND settled = ''"_s;

bool hasFacts(QueueDatabase &database)
{
    QSqlQuery table
        = database.run(u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'facts'"_s);
    return table.next();
}

int layoutOf(QueueDatabase &database)
{
    const int oldestThatCopes = database.ask(u"user_version"_s).toInt();
    if (oldestThatCopes > thisLayout)
        throw StorageError(tr::Tr(u"queueNewer"_s,
            u"%1: очередь создана более новой версией (%2, эта знает %3); установите ту версию"_s)
                               .arg(database.fileName())
                               .arg(QString::number(oldestThatCopes))
                               .arg(QString::number(thisLayout)));
    return hasFacts(database) ? qMax(database.fact(u"layout"_s).toInt(), firstLayoutWithFacts)
                              : oldestThatCopes;
}

void runAll(QueueDatabase &database, const QStringList &statements)
{
    for (const QString &statement : statements)
        database.run(statement);
}

void makeLayoutsBehind(QueueDatabase &database, int layout)
{
    if (layout < 1)
        runAll(database, firstLayout);
    if (layout < firstLayoutWithFacts)
        runAll(database, secondLayout);
    if (layout < thisLayout) {
        runAll(database, thirdLayout);
        database.setFact(u"layout"_s, QString::number(thisLayout));
        database.run(u"PRAGMA user_version = %1"_s.arg(oldestLayoutThatCopes));
    }
}

} // namespace

void bringUp(QueueDatabase &database)
{
    QueueTransaction transaction(database);
    makeLayoutsBehind(database, layoutOf(database));
    database.run(settleWhatTheFirstLayoutDelivered);
    transaction.commit();
}

} // namespace queuelayout
