#include "simulation/options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cmath>

namespace simulation {

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;
using Seconds = std::chrono::duration<double>;
using Minutes = std::chrono::duration<double, std::ratio<60>>;
using Hours = std::chrono::duration<double, std::ratio<3600>>;

// So that outage, time to give up and a wait together stay within what a backlog can note.
constexpr double mostHours = 168;
constexpr double mostMinutes = mostHours * 60;
constexpr double mostSeconds = mostMinutes * 60;
constexpr double mostMilliseconds = 60000;
constexpr int mostTills = 1000000;
constexpr int mostAtOnce = 100;
constexpr double requestsInAMillion = 1e6;
constexpr double mostWorkers = 1e6;
constexpr double least = 0.001;

/// The command line's words in the units of the command line.
struct Words
{
    std::vector<int> tills{100, 1000, 10000, 100000};
    double outage = 60;
    double together = 0;
    double chequesPerHour = 30;
    double capacity = 0;
    double capacityPerTill = 0.025;
    double serviceTime = 100;
    double queueSeconds = 1;
    double overhead = 500;
    double limit = 15;
    double fixedWait = 30;
    int failuresToStop = 3;
    int atOnce = 4;
    std::vector<std::pair<double, double>> waits;
    std::vector<std::string> policies;
    double giveUp = 24;
    double mostRequests = 50;
    std::uint64_t seed = 1;
    std::string plot;
    double plotMinutes = 0;
};

CLI::Option *number(CLI::App &app, const char *name, double &value, double most, const char *unit,
    const char *meaning)
{
    return app.add_option(name, value, meaning)
        ->type_name(unit)
        ->check(CLI::Range(least, most))
        ->capture_default_str();
}

void describeTills(CLI::App &app, Words &words)
{
    app.option_defaults()->group("The tills and the outage");
    app.add_option("--tills", words.tills, "Numbers of tills; the last one is plotted")
        ->type_name("N...")
        ->check(CLI::Range(1, mostTills))
        ->capture_default_str();
    number(app, "--outage", words.outage, mostMinutes, "MINUTES", "How long the service is away");
    number(app, "--together", words.together, mostMinutes, "MINUTES",
        "All tills begin to send at the same moment, so long before the service is back, as after "
        "a "
        "power cut; left out: each one with its first cheque")
        ->default_str("");
    number(app, "--cheques-per-hour", words.chequesPerHour, 3600, "N",
        "Cheques that a till closes in an hour of the outage");
    number(app, "--overhead", words.overhead, mostMilliseconds, "MS",
        "Of an exchange until its request is at the service: disk, name look-up, connection, TLS; "
        "on "
        "average, each takes 50 to 150 per cent of it");
    number(
        app, "--limit", words.limit, mostSeconds, "SECONDS", "A till waits so long for an answer");
}

void describeService(CLI::App &app, Words &words)
{
    app.option_defaults()->group("The service");
    auto *perTill = number(app, "--capacity-per-till", words.capacityPerTill, 1000, "RATE",
        "Requests a second that the service answers, for each till");
    number(app, "--capacity", words.capacity, 1e7, "RATE",
        "The same for the whole service, however many tills there are")
        ->default_str("")
        ->excludes(perTill);
    number(app, "--service-time", words.serviceTime, mostMilliseconds, "MS",
        "The service works on a request for so long");
    app.add_option("--queue-seconds", words.queueSeconds,
           "Requests that wait at the service, in seconds of its capacity; further ones are "
           "refused")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, mostSeconds))
        ->capture_default_str();
}

void describePolicies(CLI::App &app, Words &words)
{
    app.option_defaults()->group("The policies");
    app.add_option("--policy", words.policies, "Only these; repeatable; left out: all")
        ->type_name("NAME")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->expected(1);
    app.add_option("--failures-to-stop", words.failuresToStop, "Failures in a row that end a pass")
        ->type_name("N")
        ->check(CLI::Range(1, mostTills))
        ->capture_default_str();
    app.add_option(
           "--at-once", words.atOnce, "Requests of a till in the policy that sends in parallel")
        ->type_name("N")
        ->check(CLI::Range(2, mostAtOnce))
        ->capture_default_str();
    app.add_option("--fixed-wait", words.fixedWait, "Of the policy that always waits as long")
        ->type_name("SECONDS")
        ->check(CLI::Range(least, mostSeconds))
        ->capture_default_str();
    app.add_option("--waits", words.waits,
           "Another policy like the chosen one, with this first and longest wait; repeatable")
        ->type_name("SECONDS SECONDS");
}

void describeRun(CLI::App &app, Words &words)
{
    app.option_defaults()->group("The run");
    number(app, "--give-up", words.giveUp, mostHours, "HOURS",
        "The simulation ends so long after the return of the service");
    number(app, "--most-requests", words.mostRequests, 1e6, "MILLIONS",
        "The simulation of a policy ends after so many requests");
    app.add_option("--seed", words.seed, "The same seed gives the same numbers")
        ->type_name("N")
        ->capture_default_str();
    app.add_option("--plot", words.plot, "Writes a plot (SVG) of the last number of tills")
        ->type_name("FILE");
    number(app, "--plot-minutes", words.plotMinutes, mostMinutes, "MINUTES",
        "The plot ends there; left out: with the last request")
        ->default_str("");
}

template <typename Unit> Moment moment(double value)
{
    return std::chrono::ceil<Moment>(Unit(value));
}

Scenario scenarioOf(const Words &words, int tills)
{
    Scenario scenario;
    scenario.tills = tills;
    scenario.outage = moment<Minutes>(words.outage);
    if (words.together > 0)
        scenario.together = moment<Minutes>(words.together);
    scenario.chequesPerHour = words.chequesPerHour;
    scenario.service.capacity = words.capacity > 0 ? words.capacity : words.capacityPerTill * tills;
    scenario.service.serviceTime = moment<Milliseconds>(words.serviceTime);
    scenario.service.queueLimit = std::llround(scenario.service.capacity * words.queueSeconds);
    scenario.overhead = moment<Milliseconds>(words.overhead);
    scenario.limit = moment<Seconds>(words.limit);
    scenario.giveUp = moment<Hours>(words.giveUp);
    scenario.mostRequests = static_cast<std::int64_t>(words.mostRequests * requestsInAMillion);
    scenario.seed = words.seed;
    return scenario;
}

PolicyNumbers numbersOf(const Words &words)
{
    PolicyNumbers numbers;
    numbers.failuresToStop = words.failuresToStop;
    numbers.requestsAtOnce = words.atOnce;
    numbers.fixedWait = moment<Seconds>(words.fixedWait);
    for (const auto &[first, longest] : words.waits) {
        if (first < least || longest < first || longest > mostSeconds)
            throw OptionsError(
                "--waits: give the first wait, above 0, and then the longest, at most a "
                "week of seconds and not below the first");
        numbers.otherWaits.push_back({moment<Seconds>(first), moment<Seconds>(longest)});
    }
    return numbers;
}

std::string namesOf(const std::vector<Policy> &policies)
{
    std::string names;
    for (const Policy &policy : policies)
        names += (names.empty() ? "" : ", ") + policy.name;
    return names;
}

std::vector<Policy> chosenFrom(
    const std::vector<Policy> &all, const std::vector<std::string> &names)
{
    std::vector<Policy> found;
    for (const std::string &name : names) {
        const auto known = std::find_if(
            all.begin(), all.end(), [&](const Policy &policy) { return policy.name == name; });
        if (known == all.end())
            throw OptionsError(
                "--policy: there is no \"" + name + "\"; there are: " + namesOf(all));
        found.push_back(*known);
    }
    return names.empty() ? all : found;
}

void check(const Words &words)
{
    if (words.together > words.outage)
        throw OptionsError("--together: the tills cannot begin to send before the outage");
    const int mostOfTills = *std::max_element(words.tills.begin(), words.tills.end());
    const Scenario largest = scenarioOf(words, mostOfTills);
    if (largest.service.capacity * Seconds(largest.service.serviceTime).count() > mostWorkers)
        throw OptionsError("--service-time: at this capacity the service would work on more than a "
                           "million requests at once");
}

Options optionsFrom(const Words &words)
{
    check(words);
    Options options;
    for (const int tills : words.tills)
        options.scenarios.push_back(scenarioOf(words, tills));
    options.policies = chosenFrom(policies(numbersOf(words)), words.policies);
    options.plotFile = words.plot;
    if (words.plotMinutes > 0)
        options.plotEnd = moment<Minutes>(words.plotMinutes);
    return options;
}

} // namespace

std::optional<Options> readOptions(int argc, const char *const *argv)
{
    CLI::App app(
        "Tills come back after an outage of the loyalty service: how long their backlogs last, "
        "and what the service has to bear, for several ways of waiting. The policies: "
            + namesOf(policies({})) + ".",
        "simulate-outage");
    Words words;
    describeTills(app, words);
    describeService(app, words);
    describePolicies(app, words);
    describeRun(app, words);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &asked) {
        app.exit(asked);
        return {};
    } catch (const CLI::ParseError &error) {
        throw OptionsError(std::string(error.what()) + " (--help lists the options)");
    }
    return optionsFrom(words);
}

} // namespace simulation
