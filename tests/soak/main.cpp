// Sells very many cheques in one till and looks whether it grows or slows down.

#include "tests/soak/soak.h"

#include <QCoreApplication>
#include <QFile>

#include <CLI/CLI.hpp>

#include <iostream>

namespace {

constexpr int found = 1;
constexpr int cannotRun = 2;
constexpr int chequesPerLine = 5000;

void tell(int sold)
{
    if (sold % chequesPerLine == 0)
        std::cerr << "soak: " << sold << " cheques" << std::endl;
}

int perform(const soak::Plan &plan)
{
    const auto report = soak::run(plan, &tell);
    std::cout << soak::markdown(report).toStdString();
    const QStringList wrong = soak::violations(report, true);
    for (const QString &sentence : wrong)
        std::cerr << "soak: " << sentence.toStdString() << '\n';
    return wrong.isEmpty() ? 0 : found;
}

} // namespace

int main(int count, char **words)
{
    const QCoreApplication application(count, words);
    soak::Plan plan{100'000, 5'000, 1};
    CLI::App program("Sells cheques in one till and looks whether it grows or slows down", "soak");
    program.add_option("--cheques", plan.cheques, "how many")->capture_default_str();
    program
        .add_option("--settling", plan.settling, "cheques after which nothing may grow any more")
        ->capture_default_str();
    program.add_option("--seed", plan.seed, "the same seed, the same cheques and faults")
        ->capture_default_str();
    CLI11_PARSE(program, count, words);
    const int timed = plan.cheques - plan.settling;
    if (timed < soak::fewestBlocks * soak::chequesOfBlock || timed % soak::chequesOfBlock != 0) {
        std::cerr << "soak: behind the first cheques whole blocks of " << soak::chequesOfBlock
                  << " are sold, at least " << soak::fewestBlocks << " of them, to see a slope\n";
        return cannotRun;
    }
    try {
        return perform(plan);
    } catch (const std::exception &error) {
        std::cerr << "soak: " << error.what() << '\n';
        return cannotRun;
    }
}
