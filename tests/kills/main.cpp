// Sells cheques drawn by lot while till and deliverer are killed, and compares the books.

#include "tests/kills/run.h"

#include <QCoreApplication>
#include <QFile>

#include <CLI/CLI.hpp>

#include <iostream>
#include <stdexcept>

namespace {

constexpr int found = 1;
constexpr int cannotRun = 2;

struct Options
{
    kills::Plan plan{2000, 1000, 1, {}};
    std::string report;
    bool keep = false;
};

void tell(const kills::Progress &progress)
{
    std::cerr << "killtest: day " << progress.days << " of " << progress.ofDays << ", "
              << progress.kills << " kills, " << progress.findings << " findings" << std::endl;
}

void write(const std::string &fileName, const QString &text)
{
    QFile file(QString::fromStdString(fileName));
    const QByteArray bytes = text.toUtf8();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + fileName);
}

int perform(const Options &options)
{
    const auto report = kills::run(options.plan, options.keep, &tell);
    const QString text = kills::markdown(report);
    std::cout << text.toStdString();
    for (const QString &sentence : report.sentences)
        std::cerr << sentence.toStdString() << '\n';
    if (!options.report.empty())
        write(options.report, text);
    return report.sentences.isEmpty() ? 0 : found;
}

void declare(CLI::App &program, Options &options)
{
    program
        .add_option("--cheques", options.plan.cheques, "how many cheques are sold or taken back")
        ->check(CLI::Range(1u, 1'000'000u))
        ->capture_default_str();
    program
        .add_option("--kills", options.plan.kills,
            "how many of them are struck by a kill of the till or the deliverer")
        ->capture_default_str();
    program.add_option("--seed", options.plan.seed, "the same seed, the same cheques and kills")
        ->capture_default_str();
    program.add_option(
        "--day", options.plan.onlyDay, "only this one of the days, as a finding names it");
    program.add_option("--report", options.report, "file for the report, Markdown");
    program.add_flag("--keep", options.keep, "leave the folders of days where something was found");
}

} // namespace

int main(int count, char **words)
{
    const QCoreApplication application(count, words);
    Options options;
    CLI::App program(
        "Kills tills and deliverers at moments drawn by lot and compares the books", "killtest");
    declare(program, options);
    CLI11_PARSE(program, count, words);
    if (options.plan.kills > options.plan.cheques) {
        std::cerr << "killtest: more kills than cheques; each cheque is struck once at most\n";
        return cannotRun;
    }
    try {
        return perform(options);
    } catch (const std::exception &error) {
        std::cerr << "killtest: " << error.what() << '\n';
        return cannotRun;
    }
}
