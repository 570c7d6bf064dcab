#include "fuzz/measure.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <random>
#include <vector>

namespace fuzz {

namespace {

constexpr std::uint64_t microsecondsPerSecond = 1'000'000;
constexpr std::uint64_t microsecondsPerMillisecond = 1'000;
constexpr long nanosecondsPerMicrosecond = 1'000;
constexpr int repetitions = 2;

std::uint64_t processorMicroseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<std::uint64_t>(time.tv_sec) * microsecondsPerSecond
        + static_cast<std::uint64_t>(time.tv_nsec / nanosecondsPerMicrosecond);
}

/// A file that is mapped needs no writing: what was counted is there however the process ends.
Tally *mapped(const QByteArray &fileName)
{
    constexpr mode_t ownerOnly = 0600;
    const int file = open(fileName.constData(), O_RDWR | O_CREAT | O_CLOEXEC, ownerOnly);
    if (file < 0 || ftruncate(file, sizeof(Tally)) != 0)
        return nullptr;
    void *memory = mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    return memory == MAP_FAILED ? nullptr : static_cast<Tally *>(memory);
}

Tally &counted()
{
    static Tally inMemory;
    static Tally *const where = [] {
        const QByteArray fileName = qgetenv("KORVEL_FUZZ_TALLY");
        if (fileName.isEmpty())
            return &inMemory;
        Tally *inFile = mapped(fileName);
        require(inFile, "the tally's file can be written");
        return inFile;
    }();
    return *where;
}

// Several processes may count in one file at once.
void increase(std::uint64_t &count)
{
    std::atomic_ref(count).fetch_add(1, std::memory_order_relaxed);
}

void raiseTo(std::uint64_t value, std::uint64_t &greatest)
{
    const std::atomic_ref shared(greatest);
    std::uint64_t before = shared.load(std::memory_order_relaxed);
    while (before < value && !shared.compare_exchange_weak(before, value)) { }
}

/// In microseconds; 0: no limit.
std::uint64_t limit()
{
    return qgetenv("KORVEL_FUZZ_MILLISECONDS").toULongLong() * microsecondsPerMillisecond;
}

/// Inputs that got past the parser, later ones in place of earlier ones by lot.
class Accepted
{
public:
    void add(const QByteArray &input)
    {
        constexpr std::size_t most = 1024;
        if (m_inputs.size() < most)
            m_inputs.push_back(input);
        else
            m_inputs[m_random() % most] = input;
    }

    [[nodiscard]] QByteArray at(unsigned int seed) const
    {
        return m_inputs.empty() ? QByteArray() : m_inputs[seed % m_inputs.size()];
    }

private:
    std::vector<QByteArray> m_inputs;
    std::minstd_rand m_random;
};

Accepted &accepted()
{
    static Accepted inputs;
    return inputs;
}

struct Course
{
    bool gotPastParser = false;
    std::uint64_t microseconds = 0;
};

Course run(const QByteArray &input, Target target)
{
    const std::uint64_t begun = processorMicroseconds();
    const bool gotPastParser = target(input);
    return {gotPastParser, processorMicroseconds() - begun};
}

} // namespace

int measure(const std::uint8_t *data, std::size_t size, Target target)
{
    static const std::uint64_t most = limit();
    [[maybe_unused]] static const bool isReady = (target({}), true);
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    Course course = run(input, target);
    Tally &tally = counted();
    // The machine itself can make one run slow, hardly three.
    for (int again = 0; again < repetitions && course.microseconds > tally.slowestMicroseconds;
         ++again)
        course.microseconds = std::min(course.microseconds, run(input, target).microseconds);
    increase(tally.executions);
    if (course.gotPastParser) {
        increase(tally.pastParser);
        accepted().add(input);
    }
    raiseTo(course.microseconds, tally.slowestMicroseconds);
    if (most > 0 && course.microseconds > most) {
        std::cerr << "fuzz: " << course.microseconds << " us of processor time\n";
        require(false, "no input takes longer than is allowed");
    }
    return 0;
}

const Tally &tally()
{
    return counted();
}

QByteArray acceptedInput(unsigned int seed)
{
    return accepted().at(seed);
}

void require(bool holds, const char *promise)
{
    if (holds)
        return;
    std::cerr << "fuzz: broken: " << promise << '\n';
    std::abort();
}

} // namespace fuzz
