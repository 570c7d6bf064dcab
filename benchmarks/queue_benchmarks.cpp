// The outgoing queue: what keeping and sending messages takes. Wanted: keeping a message of 20 KB
// in at most 1.3 times an append with fdatasync of the same bytes; 500 deliveries a second, one at
// a time; with 1 000 000 waiting the status in under 50 ms and a pass that sends what is due in
// under 64 MiB; the last 1 000 of 10 000 messages in at most twice the time of the first.

#include "host/net/restclient.h"
#include "host/queue/dbqueuebroker.h"
#include "host/queue/queueoffice.h"
#include "host/storage/statefolder.h"
#include "tests/support/scriptedserver.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVariant>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int messageBytes = 20480;
constexpr int million = 1'000'000;

using Clock = std::chrono::steady_clock;
double seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

/// A queue in a folder of its own on the disk of the working directory.
class Queue
{
public:
    Queue()
    {
        Singleton<DBQueueBroker>::reset();
        Singleton<StateFolder>::instance()->setPath(m_folder.path());
        broker()->open();
    }
    ~Queue() { Singleton<DBQueueBroker>::reset(); }
    Q_DISABLE_COPY_MOVE(Queue)

    static DBQueueBroker *broker() { return Singleton<DBQueueBroker>::instance(); }
    [[nodiscard]] QString filePath(const QString &name) const { return m_folder.filePath(name); }
    void enqueue(const QString &url = u"http://127.0.0.1:9/"_s) const
    {
        broker()->enqueue(u"loyalty"_s,
            {{u"url"_s, url}, {u"headers"_s, QVariantMap()}, {u"body"_s, m_body}}, {});
    }
    /// Makes messages wait without the time of keeping each one.
    /// @param nextAttempt from when on, seconds from now.
    void fill(int count, int nextAttempt) const
    {
        {
            auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"fill"_s);
            database.setDatabaseName(filePath(u"queue/queue.sqlite"_s));
            if (!database.open())
                qFatal("no queue");
            QSqlQuery query(database);
            query.exec(u"PRAGMA synchronous = OFF"_s);
            const bool done = query.exec(
                u"WITH RECURSIVE numbers(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM numbers "
                u"WHERE n < %1) INSERT INTO messages (id, queue, remark, url, headers, body, "
                u"correlation_id, enqueued, attempts, next_attempt, last_error, state, answer, "
                u"lane) SELECT lower(hex(randomblob(16))), 'loyalty', '', 'http://127.0.0.1:9/', "
                u"'{}', zeroblob(500), '', '2024-11-21T12:00:00.000Z', 1, "
                u"strftime('%Y-%m-%dT%H:%M:%fZ', 'now', '%2 seconds'), '', 'pending', '', '1-1' "
                u"FROM numbers"_s.arg(QString::number(count), QString::number(nextAttempt)));
            if (!done)
                qFatal("the queue cannot be filled");
        }
        QSqlDatabase::removeDatabase(u"fill"_s);
    }

private:
    QTemporaryDir m_folder{u"queue-benchmark-XXXXXX"_s};
    QString m_body = QString(messageBytes, u'x');
};

/// An append with fdatasync of the bytes of a message.
class Appender
{
public:
    explicit Appender(const QString &fileName)
        : m_file(
            ::open(QFile::encodeName(fileName).constData(), O_CREAT | O_WRONLY | O_APPEND, 0600))
    { }
    ~Appender() { ::close(m_file); }
    Q_DISABLE_COPY_MOVE(Appender)

    void append() const
    {
        if (::write(m_file, m_bytes.constData(), messageBytes) != messageBytes
            || ::fdatasync(m_file) != 0)
            qFatal("cannot append");
    }

private:
    QByteArray m_bytes = QByteArray(messageBytes, 'x');
    int m_file;
};

// In turn, so that both see the same disk.
void enqueueAgainstAppend(benchmark::State &state)
{
    const Queue queue;
    const Appender appender(queue.filePath(u"appended"_s));
    Clock::duration enqueuing{};
    Clock::duration appending{};
    for (auto _ : state) {
        const auto begin = Clock::now();
        queue.enqueue();
        const auto middle = Clock::now();
        appender.append();
        enqueuing += middle - begin;
        appending += Clock::now() - middle;
    }
    const auto count = static_cast<double>(state.iterations());
    state.counters["enqueue_us"] = 1e6 * seconds(enqueuing) / count;
    state.counters["append_us"] = 1e6 * seconds(appending) / count;
    state.counters["ratio"] = seconds(enqueuing) / seconds(appending);
}
BENCHMARK(enqueueAgainstAppend)->Iterations(3000)->Repetitions(3)->Unit(benchmark::kMicrosecond);

void enqueueTenThousand(benchmark::State &state)
{
    constexpr int part = 1000;
    constexpr int parts = 10;
    for (auto _ : state) {
        const Queue queue;
        QList<double> times;
        for (int number = 0; number < parts; ++number) {
            const auto begin = Clock::now();
            for (int message = 0; message < part; ++message)
                queue.enqueue();
            times.append(seconds(Clock::now() - begin));
        }
        state.counters["first_ms"] = 1e3 * times.first();
        state.counters["last_ms"] = 1e3 * times.last();
        state.counters["ratio"] = times.last() / times.first();
    }
}
BENCHMARK(enqueueTenThousand)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

/// How long so many appends take, each with its fdatasync.
Clock::duration timeOfAppends(const Queue &queue, int count)
{
    const Appender appender(queue.filePath(u"appended"_s));
    const auto begin = Clock::now();
    for (int append = 0; append < count; ++append)
        appender.append();
    return Clock::now() - begin;
}

// The appends tell what disk the deliveries had.
void deliver(benchmark::State &state)
{
    constexpr int messages = 2000;
    constexpr int appends = 500;
    ScriptedServer service;
    service.answer("<ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse>");
    double delivered = 0;
    Clock::duration time{};
    Clock::duration appending{};
    for (auto _ : state) {
        const Queue queue;
        for (int message = 0; message < messages; ++message)
            queue.enqueue(service.url().toString());
        const auto begin = Clock::now();
        delivered += Queue::broker()->deliver().delivered;
        time += Clock::now() - begin;
        appending += timeOfAppends(queue, appends);
    }
    state.counters["a_second"] = delivered / seconds(time);
    state.counters["appends_a_second"]
        = appends * static_cast<double>(state.iterations()) / seconds(appending);
}
BENCHMARK(deliver)->Iterations(1)->Repetitions(3)->Unit(benchmark::kMillisecond);

void statusOfAMillion(benchmark::State &state)
{
    const Queue queue;
    queue.fill(million, 600);
    for (auto _ : state)
        Queue::broker()->inOffice(
            [](QueueOffice &office) { benchmark::DoNotOptimize(office.status()); });
}
BENCHMARK(statusOfAMillion)->Unit(benchmark::kMillisecond);

void pageOfAMillion(benchmark::State &state)
{
    const Queue queue;
    queue.fill(million, 600);
    for (auto _ : state)
        Queue::broker()->inOffice(
            [](QueueOffice &office) { benchmark::DoNotOptimize(office.list({})); });
}
BENCHMARK(pageOfAMillion)->Unit(benchmark::kMillisecond);

/// The most memory that the process has held, in MiB, since `forgetMostMemory`.
double mostMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0.0;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("VmHWM:") + 6;
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toDouble() / 1024.0;
}

void forgetMostMemory()
{
    QFile file(u"/proc/self/clear_refs"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write("5") != 1)
        qFatal("the most memory held cannot be reset");
}

// The few that are due stand behind all that are not.
void passWithAMillionWaiting(benchmark::State &state)
{
    constexpr int due = 10;
    const Queue queue;
    queue.fill(million, 600);
    ScriptedServer service;
    service.answer("<ok/>");
    for (auto _ : state) {
        for (int message = 0; message < due; ++message)
            queue.enqueue(service.url().toString());
        forgetMostMemory();
        if (Queue::broker()->deliverDue().delivered != due)
            state.SkipWithError("not delivered");
        state.counters["MiB"] = mostMemory();
    }
}
BENCHMARK(passWithAMillionWaiting)->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace
