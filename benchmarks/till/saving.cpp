// What it costs to keep the open document, beside writing and syncing the same bytes.

#include "benchmarks/client/samples.h"
#include "benchmarks/till/workplace.h"

#include "host/storage/documentjson.h"
#include "host/storage/savetofilelogic.h"
#include "host/storage/statefolder.h"

#include <QFile>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

using namespace samples;

// Another document each time: the same one again would be on disk already.
void change(AbstractDocument &document, benchmark::IterationCount number)
{
    document.setChequeText(QString::number(number));
}

void save(benchmark::State &state)
{
    const Workplace workplace;
    const auto document = chequeOf(positionsOf(state));
    const auto logic = MockFactory<SaveToFileLogic>::create();
    benchmark::IterationCount number = 0;
    for (auto _ : state) {
        change(*document, ++number);
        logic->save(document, {});
    }
}

void serialise(benchmark::State &state)
{
    const auto document = chequeOf(positionsOf(state));
    benchmark::IterationCount number = 0;
    for (auto _ : state) {
        change(*document, ++number);
        benchmark::DoNotOptimize(documentjson::write(*document));
    }
}

void writeAndSync(const char *fileName, const QByteArray &bytes)
{
    constexpr int privateFile = 0600;
    const int file = ::open(fileName, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, privateFile);
    benchmark::DoNotOptimize(
        ::write(file, bytes.constData(), static_cast<std::size_t>(bytes.size())));
    ::fsync(file);
    ::close(file);
}

void syncFolder(const char *name)
{
    const int folder = ::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ::fsync(folder);
    ::close(folder);
}

/// Writing the same bytes over the same file; a power cut may leave half of them.
void writeSynced(benchmark::State &state)
{
    const Workplace workplace;
    const QByteArray bytes = documentjson::write(*chequeOf(positionsOf(state)));
    const QByteArray name = QFile::encodeName(workplace.folder() + QStringLiteral("/same.json"));
    for (auto _ : state)
        writeAndSync(name.constData(), bytes);
}

/// The same so that a power cut leaves the old ones or the new ones.
void replaceSynced(benchmark::State &state)
{
    const Workplace workplace;
    const QByteArray bytes = documentjson::write(*chequeOf(positionsOf(state)));
    const QByteArray folder = QFile::encodeName(workplace.folder());
    const QByteArray name = folder + "/same.json";
    const QByteArray temporary = name + ".new";
    for (auto _ : state) {
        writeAndSync(temporary.constData(), bytes);
        ::rename(temporary.constData(), name.constData());
        syncFolder(folder.constData());
    }
}

void usePositions(benchmark::internal::Benchmark *cases)
{
    cases->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond)->UseRealTime();
}

BENCHMARK(save)->Apply(usePositions);
BENCHMARK(replaceSynced)->Apply(usePositions);
BENCHMARK(writeSynced)->Apply(usePositions);
BENCHMARK(serialise)->Apply(usePositions);

} // namespace
