#include "simulation/backlogs.h"
#include "simulation/options.h"
#include "simulation/outage.h"
#include "simulation/plot.h"
#include "simulation/table.h"

#include <QFile>
#include <QSaveFile>
#include <QtConcurrentMap>

#include <algorithm>
#include <iostream>

namespace {

using namespace simulation;

constexpr int exitWrongUse = 2;

std::size_t longestName(const std::vector<Policy> &policies)
{
    std::size_t longest = 0;
    for (const Policy &policy : policies)
        longest = std::max(longest, policy.name.size());
    return longest;
}

// The policies side by side on all processors, told in their order as soon as each is done.
std::vector<Curve> simulate(
    const Scenario &scenario, const std::vector<Policy> &policies, Table &table)
{
    const std::vector<Backlog> backlogs = backlogsOf(scenario);
    table.addScenario(scenario);
    // Optional, since results must have a default.
    const auto measured = [&](const Policy &policy) -> std::optional<Measures> {
        Outage outage(scenario, policy, backlogs);
        outage.run();
        return outage.measures();
    };
    const auto results = QtConcurrent::mapped(policies, measured);
    std::vector<Curve> curves;
    for (std::size_t i = 0; i < policies.size(); ++i) {
        curves.push_back({policies[i].name, *results.resultAt(static_cast<int>(i))});
        table.addRow(curves.back().policy, curves.back().measures, scenario);
    }
    return curves;
}

OptionsError notWritten(const QSaveFile &file)
{
    return OptionsError("--plot: " + file.fileName().toStdString()
        + " cannot be written: " + file.errorString().toStdString());
}

void run(const Options &options)
{
    QSaveFile plot(QFile::decodeName(options.plotFile.c_str()));
    // Before the simulation, which may take a minute.
    if (!options.plotFile.empty() && !plot.open(QIODevice::WriteOnly))
        throw notWritten(plot);
    Table table(std::cout, longestName(options.policies));
    std::vector<Curve> last;
    for (const Scenario &scenario : options.scenarios) {
        last = simulate(scenario, options.policies, table);
        std::cout << std::endl;
    }
    if (!plot.isOpen())
        return;
    plot.write(QByteArray::fromStdString(plotOf(options.scenarios.back(), last, options.plotEnd)));
    if (!plot.commit())
        throw notWritten(plot);
}

} // namespace

int main(int argc, char **argv)
{
    try {
        if (const auto options = readOptions(argc, argv))
            run(*options);
        return EXIT_SUCCESS;
    } catch (const std::exception &error) {
        std::cerr << "simulate-outage: " << error.what() << std::endl;
        return exitWrongUse;
    }
}
