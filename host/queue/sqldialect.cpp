#include "host/queue/sqldialect.h"

using namespace Qt::Literals::StringLiterals;

namespace sqldialect {

const SqlDialect &sqlite()
{
    static const SqlDialect dialect{
        .driver = u"QSQLITE"_s,
        // A plain BEGIN takes the write lock only at the first change and then fails at once when
        // another process has changed something meanwhile.
        .begin = u"BEGIN IMMEDIATE"_s,
        .skipLocked = {},
        .takeLane = u"SELECT number, lane, 1 FROM (%1)"_s,
        .noteFact = u"INSERT INTO facts (value, name) VALUES (?, ?) "
                    u"ON CONFLICT (name) DO UPDATE SET value = excluded.value"_s,
        .sumCounts = {},
        .now = {},
    };
    return dialect;
}

const SqlDialect &postgresql()
{
    static const SqlDialect dialect{
        .driver = u"QPSQL"_s,
        // Every statement sees what others have committed before it.
        .begin = u"BEGIN ISOLATION LEVEL READ COMMITTED"_s,
        .skipLocked = u" FOR UPDATE SKIP LOCKED"_s,
        // The first number keeps these locks apart from those of other programs.
        .takeLane = u"SELECT number, lane, pg_try_advisory_xact_lock(1802662508, hashtext(lane)) "
                    u"FROM (%1) AS first"_s,
        // All deliverers note the same facts: none waits for another one's commit.
        .noteFact = u"UPDATE facts SET value = ? WHERE name = "
                    u"(SELECT name FROM facts WHERE name = ? FOR UPDATE SKIP LOCKED)"_s,
        // So many at a time as take no noticeable time.
        .sumCounts = u"WITH gone AS (DELETE FROM counts WHERE ctid IN "
                     u"(SELECT ctid FROM counts LIMIT 10000 FOR UPDATE SKIP LOCKED) "
                     u"RETURNING state, messages) "
                     u"INSERT INTO counts SELECT state, sum(messages) FROM gone GROUP BY state"_s,
        .now = u"SELECT to_char(clock_timestamp() AT TIME ZONE 'UTC', "
               u"'YYYY-MM-DD\"T\"HH24:MI:SS.MS\"Z\"')"_s,
    };
    return dialect;
}

} // namespace sqldialect
