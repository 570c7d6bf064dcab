// How many cheques korvel-service answers in a second, how long they take, and what memory it
// needs.

#include "benchmarks/serviceload/service.h"
#include "benchmarks/serviceload/tills.h"

#include <QCoreApplication>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int usualTills = 200;
constexpr int usualRate = 2000;
constexpr int usualRequests = 40'000;

struct Words
{
    std::string service;
    serviceload::Load load{0, usualTills, usualRate, usualRequests};
};

bool readWords(int argc, char **argv, Words &words)
{
    CLI::App app("Puts a load on korvel-service, with its books in memory", "service_load");
    app.add_option("--service", words.service, "the program; without it the one beside this one");
    app.add_option("--tills", words.load.tills, "each with a card of its own")
        ->capture_default_str()
        ->check(CLI::PositiveNumber);
    app.add_option("--rate", words.load.requestsInSecond, "requests in a second, of all together")
        ->capture_default_str()
        ->check(CLI::PositiveNumber);
    app.add_option("--requests", words.load.requestsInAll, "in all, at least 10")
        ->capture_default_str()
        ->check(CLI::Range(10, 100'000'000));
    app.add_flag("--register", words.load.registers, "every second request registers its cheque");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        app.exit(error);
        return false;
    }
    return true;
}

double percentile(const std::vector<double> &sorted, double share)
{
    const auto place = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
    return sorted.at(std::min(place, sorted.size() - 1));
}

void print(const serviceload::Outcome &outcome, const serviceload::Service &service)
{
    std::vector<double> times = outcome.milliseconds;
    std::sort(times.begin(), times.end());
    const double seconds = outcome.time.count();
    std::printf("answered      %zu in %.1f s, %.0f a second; failed %d\n", times.size(), seconds,
        static_cast<double>(times.size()) / seconds, outcome.failures);
    if (!times.empty())
        std::printf("milliseconds  median %.2f, p99 %.2f, longest %.2f\n", percentile(times, 0.5),
            percentile(times, 0.99), times.back());
    const auto inSeconds = [](std::chrono::milliseconds time) {
        return std::chrono::duration<double>(time).count();
    };
    std::printf("processor     service %.1f s, this program %.1f s\n",
        inSeconds(service.processorTime()), inSeconds(serviceload::ownProcessorTime()));
}

} // namespace

int main(int argc, char **argv)
try {
    Words words;
    if (!readWords(argc, argv, words))
        return EXIT_FAILURE;
    const QCoreApplication application(argc, argv);
    const QString beside = QCoreApplication::applicationDirPath() + u"/korvel-service"_s;
    const serviceload::Service service(
        words.service.empty() ? beside : QString::fromStdString(words.service), words.load.tills);
    words.load.port = service.port();
    std::printf("memory        %lld KiB at the start\n", service.kibibytes());
    const auto outcome = serviceload::putLoadOn(words.load, [&service](int tenth) {
        std::printf("memory        %lld KiB after %d0 %%\n", service.kibibytes(), tenth);
    });
    print(outcome, service);
    return outcome.failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
} catch (const std::exception &error) {
    std::fprintf(stderr, "service_load: %s\n", error.what());
    return EXIT_FAILURE;
}
