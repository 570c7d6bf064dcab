// Works a queue in a process of its own, so that tests can kill it and look at its system calls.
//
//   queue_worker enqueue FOLDER FIRST COUNT BYTES   says each message's number when it is kept
//   queue_worker careless FOLDER COUNT BYTES        inserts without syncing, as no queue may
//   queue_worker deliver FOLDER                     says "ready", and delivers until nothing waits
//   queue_worker move FOLDER                        says "ready", and moves what waits here to the
//                                                   shared queue
//
// QUEUE_DATABASE in the environment is the setting "Queue:database".

#include "host/config/config.h"
#include "host/queue/dbqueuebroker.h"
#include "host/queue/queueoffice.h"
#include "host/storage/statefolder.h"
#include "host/storage/storageerror.h"

#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

QString body(int number, int bytes)
{
    return u"<m n=\"%1\">"_s.arg(number) + QString(bytes, u'x') + u"</m>"_s;
}

int enqueue(const QStringList &words)
{
    const int first = words.value(3).toInt();
    for (int number = first; number < first + words.value(4).toInt(); ++number) {
        Singleton<DBQueueBroker>::instance()->enqueue(u"loyalty"_s,
            {{u"url"_s, words.value(6)}, {u"body"_s, body(number, words.value(5).toInt())}}, {});
        std::printf("%d\n", number);
        std::fflush(stdout);
    }
    return 0;
}

int careless(const QStringList &words)
{
    Singleton<DBQueueBroker>::instance()->open();
    auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s);
    database.setDatabaseName(Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s);
    if (!database.open() || !QSqlQuery(database).exec(u"PRAGMA synchronous = NORMAL"_s))
        return 1;
    for (int number = 0; number < words.value(3).toInt(); ++number) {
        QSqlQuery insert(database);
        insert.prepare(
            u"INSERT INTO messages (id, queue, remark, url, headers, body, "
            u"correlation_id, enqueued, attempts, next_attempt, last_error, state, "
            u"answer) VALUES (?, '', '', '', '{}', ?, '', '', 0, '', '', 'pending', '')"_s);
        insert.addBindValue(QString::number(number));
        insert.addBindValue(body(number, words.value(4).toInt()));
        if (!insert.exec())
            return 1;
    }
    return 0;
}

void sayThatWorkBegins()
{
    std::puts("ready");
    std::fflush(stdout);
}

/// A file that several deliver from without a pause may pass over the one who opens it for longer
/// than the file is waited for.
void openBesideOthers(DBQueueBroker &queue)
{
    constexpr int triesAgain = 20;
    for (int tries = 0;; ++tries) {
        try {
            queue.open();
            return;
        } catch (const StorageError &) {
            if (tries == triesAgain)
                throw;
        }
    }
}

int deliver()
{
    auto *const queue = Singleton<DBQueueBroker>::instance();
    openBesideOthers(*queue);
    sayThatWorkBegins();
    while (queue->waiting() > 0)
        queue->deliver();
    return 0;
}

int move()
{
    sayThatWorkBegins();
    // A look at the queue moves what there is time for.
    while (!Singleton<DBQueueBroker>::instance()->inOffice(
        [](QueueOffice &office) { return office.status().waitingHere == 0; })) { }
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    Singleton<StateFolder>::instance()->setPath(words.value(2));
    const QString database = qEnvironmentVariable("QUEUE_DATABASE");
    if (!database.isEmpty())
        Singleton<Config>::instance()->set(u"Queue:database"_s, database);
    if (words.value(1) == u"enqueue"_s)
        return enqueue(words);
    if (words.value(1) == u"careless"_s)
        return careless(words);
    if (words.value(1) == u"move"_s)
        return move();
    return words.value(1) == u"deliver"_s ? deliver() : 2;
}
