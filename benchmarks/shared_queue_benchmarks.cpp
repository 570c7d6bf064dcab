// A queue on a PostgreSQL server: what keeping and sending messages takes. Wanted: 1 000 deliveries
// a second with four in flight, which four deliverers have, each a process of its own; and with a
// million waiting less than 50 ms for a look, and less than 64 MiB for any command.

#include "host/config/config.h"
#include "host/queue/dbqueuebroker.h"
#include "host/queue/leaseowner.h"
#include "host/queue/messagestore.h"
#include "host/queue/queueoffice.h"
#include "host/queue/server/queueserver.h"
#include "host/storage/statefolder.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/support/scriptedserver.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int messageBytes = 20480;
constexpr int lanes = 50;
constexpr int million = 1'000'000;
const QString deliverWord = u"deliver"_s;

using Clock = std::chrono::steady_clock;

double seconds(Clock::duration time)
{
    return std::chrono::duration<double>(time).count();
}

void use(const QString &address, const QString &folder)
{
    Singleton<DBQueueBroker>::reset();
    Singleton<StateFolder>::instance()->setPath(folder);
    Singleton<Config>::instance()->set(u"Queue:database"_s, address);
}

/// The server with an empty queue; its data is in memory for argument 0, on the disk for 1.
std::unique_ptr<PostgresServer> startServer(const benchmark::State &state)
{
    auto server = std::make_unique<PostgresServer>(
        state.range(0) == 0 ? PostgresServer::memory() : QDir::tempPath());
    use(server->url(), server->folder() + u"/till"_s);
    Singleton<DBQueueBroker>::instance()->open();
    return server;
}

void fill(const PostgresServer &server, int count, const QString &url)
{
    MessageStore store(
        std::make_unique<QueueServer>(ServerAddress::read(server.url())), leaseowner::makeName());
    QList<QueueMessage> messages;
    for (int number = 0; number < count; ++number) {
        QueueMessage message;
        message.id = QString::number(number);
        message.queue = u"loyalty"_s;
        message.url = url;
        message.body = QByteArray(messageBytes, 'x');
        message.lane = QString::number(number % lanes);
        message.enqueued = QDateTime::currentDateTimeUtc();
        message.nextAttempt = message.enqueued;
        messages.append(message);
    }
    constexpr int oneStep = 100;
    for (int begin = 0; begin < count; begin += oneStep)
        store.takeIn(messages.mid(begin, oneStep));
}

void enqueueToServer(benchmark::State &state)
{
    const auto server = startServer(state);
    const QVariantMap message{
        {u"url"_s, u"http://127.0.0.1:9/"_s}, {u"body"_s, QString(messageBytes, u'x')}};
    for (auto _ : state)
        Singleton<DBQueueBroker>::instance()->enqueue(u"loyalty"_s, message, {});
    Singleton<DBQueueBroker>::reset();
}
BENCHMARK(enqueueToServer)->Arg(0)->Arg(1)->Iterations(1000)->Unit(benchmark::kMicrosecond);

void deliverFromServer(benchmark::State &state)
{
    constexpr int messages = 4000;
    const auto deliverers = state.range(1);
    const auto server = startServer(state);
    ScriptedServer service;
    service.answer("<ChequeResponse><ReturnCode>0</ReturnCode></ChequeResponse>");
    fill(*server, messages, service.url().toString());
    for (auto _ : state) {
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int number = 0; number < deliverers; ++number) {
            processes.push_back(std::make_unique<QProcess>());
            processes.back()->start(QCoreApplication::applicationFilePath(),
                {deliverWord, server->url(), server->folder() + u"/d%1"_s.arg(number)});
            // All are ready before the first one begins.
            while (!processes.back()->canReadLine() && processes.back()->waitForReadyRead(-1)) { }
        }
        const auto begin = Clock::now();
        for (const auto &process : processes)
            process->closeWriteChannel();
        for (const auto &process : processes)
            process->waitForFinished(-1);
        state.counters["a_second"] = messages / seconds(Clock::now() - begin);
        if (Singleton<DBQueueBroker>::instance()->waiting() > 0
            || service.requests().size() != messages)
            state.SkipWithError("not delivered once each");
    }
    Singleton<DBQueueBroker>::reset();
}
BENCHMARK(deliverFromServer)
    ->ArgsProduct({{0, 1}, {1, 2, 4, 8}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

/// Puts a million messages there that are due in ten minutes; the counts are summed, as deliverers
/// leave them.
void fillWithAMillion(const PostgresServer &server)
{
    const QString name = u"filling"_s;
    {
        const ServerAddress address = ServerAddress::read(server.url());
        auto database = QSqlDatabase::addDatabase(u"QPSQL"_s, name);
        database.setHostName(address.host);
        database.setPort(address.port);
        database.setUserName(address.user);
        database.setPassword(address.password);
        database.setDatabaseName(address.database);
        if (!database.open())
            qFatal("%s", qPrintable(database.lastError().text()));
        QSqlQuery query(database);
        const QString due
            = QDateTime::currentDateTimeUtc().addSecs(600).toString(Qt::ISODateWithMs);
        for (const QString &statement :
            {u"ALTER TABLE messages DISABLE TRIGGER messages_count"_s,
                u"INSERT INTO messages (id, queue, remark, url, headers, body, correlation_id, "
                u"enqueued, attempts, next_attempt, last_error, state, answer, lane, last_attempt, "
                u"lease_owner, lease_until, deliverers_lost, last_code, answered_otherwise_since, "
                u"settled, moved_to) SELECT gen_random_uuid()::text, 'loyalty', '', '', '{}', "
                u"convert_to(repeat('x', 600), 'UTF8'), n::text, '2024-11-21T12:00:00.000Z', 3, "
                u"'%1', 'no answer', 'pending', '', (n %3 200)::text, '', '', '', 0, 0, '', '', '' "
                u"FROM generate_series(1, %2) AS n"_s.arg(due, QString::number(million), u"%"_s),
                u"ALTER TABLE messages ENABLE TRIGGER messages_count"_s,
                u"INSERT INTO counts VALUES ('pending', %1)"_s.arg(million), u"VACUUM ANALYZE"_s})
            if (!query.exec(statement))
                qFatal("%s", qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(name);
}

/// Runs `korvel-till queue` to its end; the most memory that it held, in MiB.
double mostMemory(const PostgresServer &server, const QStringList &words)
{
    QFile settings(server.folder() + u"/till.ini"_s);
    if (!settings.open(QIODevice::WriteOnly))
        qFatal("the settings cannot be written");
    settings.write("[Queue]\ndatabase=" + server.url().toUtf8() + '\n');
    settings.close();
    QStringList command{QCoreApplication::applicationDirPath() + u"/korvel-till"_s, u"queue"_s};
    command += words;
    command += {u"--config"_s, settings.fileName(), u"--state"_s, server.folder() + u"/till"_s};
    std::vector<QByteArray> texts;
    std::vector<char *> arguments;
    for (const QString &word : command)
        texts.push_back(word.toLocal8Bit());
    for (QByteArray &text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files{};
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    if (::posix_spawn(&process, arguments.front(), &files, nullptr, arguments.data(), environ) != 0)
        qFatal("korvel-till does not start");
    posix_spawn_file_actions_destroy(&files);
    int status = 0;
    rusage usage{};
    ::wait4(process, &status, 0, &usage);
    // 1 and 2 are what it thinks of a queue that has waited long.
    constexpr int unusable = 3;
    if (!WIFEXITED(status) || WEXITSTATUS(status) >= unusable)
        qFatal("korvel-till has failed");
    constexpr double kilobytes = 1024.0;
    return static_cast<double>(usage.ru_maxrss) / kilobytes;
}

void statusOfAMillion(benchmark::State &state)
{
    const auto server = startServer(state);
    fillWithAMillion(*server);
    for (auto _ : state)
        Singleton<DBQueueBroker>::instance()->inOffice(
            [](QueueOffice &office) { benchmark::DoNotOptimize(office.status()); });
    state.counters["MiB"] = mostMemory(*server, {u"status"_s});
    Singleton<DBQueueBroker>::reset();
}
BENCHMARK(statusOfAMillion)->Arg(1)->Iterations(20)->Unit(benchmark::kMillisecond);

void listOfAMillion(benchmark::State &state)
{
    const auto server = startServer(state);
    fillWithAMillion(*server);
    for (auto _ : state)
        state.counters["MiB"] = mostMemory(*server, {u"list"_s, u"--json"_s});
    Singleton<DBQueueBroker>::reset();
}
BENCHMARK(listOfAMillion)->Arg(1)->Iterations(1)->Unit(benchmark::kSecond);

// The few that are due stand behind all that are not.
void passWithAMillionWaiting(benchmark::State &state)
{
    constexpr int due = 10;
    const auto server = startServer(state);
    fillWithAMillion(*server);
    ScriptedServer service;
    service.answer("<ok/>");
    const QVariantMap message{{u"url"_s, service.url().toString()}, {u"body"_s, u"<m/>"_s}};
    for (auto _ : state) {
        for (int number = 0; number < due; ++number)
            Singleton<DBQueueBroker>::instance()->enqueue(u"loyalty"_s, message, {});
        if (Singleton<DBQueueBroker>::instance()->deliverDue().delivered != due)
            state.SkipWithError("not delivered");
    }
    state.counters["MiB"] = mostMemory(*server, {u"watch"_s, u"--once"_s});
    Singleton<DBQueueBroker>::reset();
}
BENCHMARK(passWithAMillionWaiting)->Arg(1)->Iterations(3)->Unit(benchmark::kMillisecond);

// Connects, says so, and delivers when its input ends.
int deliver(const QStringList &words)
{
    use(words.value(2), words.value(3));
    Singleton<DBQueueBroker>::instance()->open();
    std::puts("ready");
    std::fflush(stdout);
    while (std::getchar() != EOF) { }
    while (Singleton<DBQueueBroker>::instance()->waiting() > 0)
        Singleton<DBQueueBroker>::instance()->deliver();
    Singleton<DBQueueBroker>::reset();
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.value(1) == deliverWord)
        return deliver(words);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
