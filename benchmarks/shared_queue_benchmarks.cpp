// A queue on a PostgreSQL server: what keeping and sending messages takes. Wanted: 1 000 deliveries
// a second with four in flight, which four deliverers have, each a process of its own.

#include "host/config/config.h"
#include "host/queue/dbqueuebroker.h"
#include "host/queue/leaseowner.h"
#include "host/queue/messagestore.h"
#include "host/queue/server/queueserver.h"
#include "host/storage/statefolder.h"
#include "tests/host/queue/postgresserver.h"
#include "tests/support/scriptedserver.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <benchmark/benchmark.h>

#include <chrono>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int messageBytes = 20480;
constexpr int lanes = 50;
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
    ->ArgsProduct({{0, 1}, {1, 2, 4}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

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
