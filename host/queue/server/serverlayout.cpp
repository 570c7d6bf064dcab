#include "host/queue/server/serverlayout.h"

#include "host/queue/queueerror.h"

using namespace Qt::Literals::StringLiterals;

namespace serverlayout {

namespace {

constexpr int thisLayout = 2;
const QString layoutFact = u"layout"_s;
const QString oldestThatCopesFact = u"oldest_layout_that_copes"_s;

// Texts are compared byte by byte whatever the language of the database: times sort as texts.
// The counts are sums of many rows, since one row for each state would let one transaction at a
// time change any message.
const QStringList statements{
    uR"(
    CREATE TABLE messages (
        number BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
        id TEXT COLLATE "C" NOT NULL UNIQUE,
        queue TEXT NOT NULL,
        remark TEXT NOT NULL,
        url TEXT NOT NULL,
        headers TEXT NOT NULL,
        body BYTEA NOT NULL,
        correlation_id TEXT COLLATE "C" NOT NULL,
        enqueued TEXT COLLATE "C" NOT NULL,
        attempts INTEGER NOT NULL,
        next_attempt TEXT COLLATE "C" NOT NULL,
        last_error TEXT NOT NULL,
        state TEXT COLLATE "C" NOT NULL
            CHECK (state IN ('pending', 'sending', 'delivered', 'refused', 'parked')),
        answer BYTEA NOT NULL,
        lane TEXT COLLATE "C" NOT NULL,
        last_attempt TEXT COLLATE "C" NOT NULL,
        lease_owner TEXT COLLATE "C" NOT NULL,
        lease_until TEXT COLLATE "C" NOT NULL,
        deliverers_lost INTEGER NOT NULL,
        last_code INTEGER NOT NULL,
        answered_otherwise_since TEXT COLLATE "C" NOT NULL,
        settled TEXT COLLATE "C" NOT NULL,
        moved_to TEXT NOT NULL
    ))"_s,
    u"CREATE INDEX messages_by_state ON messages (state, number, next_attempt, lane)"_s,
    u"CREATE INDEX messages_of_lane ON messages (lane, number) WHERE state = 'pending'"_s,
    u"CREATE INDEX messages_due ON messages (next_attempt) WHERE state = 'pending'"_s,
    u"CREATE INDEX messages_delivered ON messages (settled) WHERE state = 'delivered'"_s,
    u"CREATE INDEX messages_of_documents ON messages (correlation_id, number) "
    u"WHERE correlation_id <> ''"_s,
    u"CREATE INDEX messages_moved ON messages (number) WHERE moved_to <> ''"_s,
    u"CREATE TABLE facts (name TEXT COLLATE \"C\" PRIMARY KEY, value TEXT NOT NULL)"_s,
    u"INSERT INTO facts VALUES ('last_success', ''), ('last_error', ''), ('last_error_time', '')"_s,
    u"CREATE TABLE counts (state TEXT COLLATE \"C\" NOT NULL, messages BIGINT NOT NULL)"_s,
    u"INSERT INTO counts VALUES ('pending', 0), ('sending', 0), ('delivered', 0), "
    u"('refused', 0), ('parked', 0)"_s,
    uR"(
    CREATE FUNCTION count_message() RETURNS trigger LANGUAGE plpgsql AS $$
    BEGIN
        IF TG_OP <> 'INSERT' THEN
            INSERT INTO counts VALUES (old.state, -1);
        END IF;
        IF TG_OP <> 'DELETE' THEN
            INSERT INTO counts VALUES (new.state, 1);
        END IF;
        RETURN NULL;
    END $$)"_s,
    u"CREATE TRIGGER messages_count AFTER INSERT OR DELETE ON messages "
    u"FOR EACH ROW EXECUTE FUNCTION count_message()"_s,
    u"CREATE TRIGGER messages_count_changed AFTER UPDATE OF state ON messages "
    u"FOR EACH ROW WHEN (old.state <> new.state) EXECUTE FUNCTION count_message()"_s,
};

// Asked of the catalogue's rows: a name that was looked up in vain is remembered as missing, also
// when another program has made the table meanwhile.
bool isTable(QueueDatabase &database, const QString &name)
{
    return database
        .run(u"SELECT 1 FROM pg_tables WHERE schemaname = current_schema() AND tablename = ?"_s,
            {name})
        .next();
}

bool isMade(QueueDatabase &database)
{
    if (!isTable(database, u"facts"_s))
        return false;
    const int oldestThatCopes = database.fact(oldestThatCopesFact).toInt();
    if (oldestThatCopes > thisLayout)
        throw QueueUnreached(tr::Tr(u"queueNewer"_s,
            u"%1: очередь создана более новой версией (%2, эта знает %3); установите ту версию"_s)
                                 .arg(database.fileName())
                                 .arg(QString::number(oldestThatCopes))
                                 .arg(QString::number(thisLayout)));
    const int layout = database.fact(layoutFact).toInt();
    if (layout < thisLayout)
        throw QueueUnreached(tr::Tr(u"queueOlder"_s,
            u"%1: в базе данных таблицы более старой версии (%2, этой нужна %3); укажите "
            u"другую базу данных в «Queue:database»"_s)
                                 .arg(database.fileName())
                                 .arg(QString::number(layout))
                                 .arg(QString::number(thisLayout)));
    return true;
}

} // namespace

void bringUp(QueueDatabase &database)
{
    if (isMade(database))
        return;
    QueueTransaction transaction(database);
    // Kept until the transaction ends. The number stands for this queue's tables.
    database.run(u"SELECT pg_advisory_xact_lock(7742330441583845)"_s);
    if (isMade(database))
        return;
    if (isTable(database, u"messages"_s))
        throw QueueUnreached(tr::Tr(u"queueForeignTable"_s,
            u"%1: в базе данных есть таблица «messages» другой программы; укажите в "
            u"«Queue:database» отдельную базу данных очереди"_s)
                                 .arg(database.fileName()));
    for (const QString &statement : statements)
        database.run(statement);
    database.setFact(layoutFact, QString::number(thisLayout));
    database.setFact(oldestThatCopesFact, QString::number(thisLayout));
    transaction.commit();
}

} // namespace serverlayout
