// How long a till takes to start. Each start is a process of its own: what was loaded once is
// loaded.

#include "host/config/config.h"
#include "host/framework/basicplugin.h"

#include <QCoreApplication>
#include <QFile>
#include <QPluginLoader>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <iostream>

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int forEver = -1;
constexpr double nanosecondsPerSecond = 1e9;
const QString programs = QStringLiteral(BENCHMARK_PROGRAMS);
const QString readyWord = u"--make-plugin-ready"_s;

/// Loads the plug-in into a host that is there, makes its object, initialises it, and prints the
/// nanoseconds that it took.
int makePluginReady()
{
    Singleton<Config>::instance()->load(QStringLiteral(BENCHMARK_CONFIG "/till.ini"));
    const auto begin = std::chrono::steady_clock::now();
    QPluginLoader loader(programs + u"/korvelloyaltyonline.so");
    auto *const plugin = qobject_cast<BasicPlugin *>(loader.instance());
    const bool ready = plugin && plugin->init();
    const std::chrono::nanoseconds taken = std::chrono::steady_clock::now() - begin;
    std::cout << taken.count() << std::endl;
    return ready ? 0 : 1;
}

void readyPlugin(benchmark::State &state)
{
    for (auto _ : state) {
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(), {readyWord});
        process.waitForFinished(forEver);
        if (process.exitCode() != 0)
            state.SkipWithError("the plug-in cannot be made ready");
        state.SetIterationTime(
            process.readAllStandardOutput().trimmed().toDouble() / nanosecondsPerSecond);
    }
}

void runTill(benchmark::State &state, const QStringList &options)
{
    for (auto _ : state) {
        QProcess process;
        process.start(programs + u"/korvel-till", options);
        process.waitForFinished(forEver);
        if (process.exitCode() != 0)
            state.SkipWithError("the till did not end well");
    }
}

/// With a state folder that had been there, as every day but the first.
void runEmptyScript(benchmark::State &state)
{
    const QTemporaryDir folder;
    QFile script(folder.filePath(u"empty.till"_s));
    if (!script.open(QIODevice::WriteOnly))
        return state.SkipWithError("no script");
    script.close();
    runTill(state,
        {u"run"_s, u"--config"_s, QStringLiteral(BENCHMARK_CONFIG "/till.ini"), u"--state"_s,
            folder.filePath(u"state"_s), script.fileName()});
}

/// The process and its libraries, without a till.
void printVersion(benchmark::State &state)
{
    runTill(state, {u"--version"_s});
}

BENCHMARK(readyPlugin)->Unit(benchmark::kMillisecond)->UseManualTime();
BENCHMARK(runEmptyScript)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(printVersion)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().value(1) == readyWord)
        return makePluginReady();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
