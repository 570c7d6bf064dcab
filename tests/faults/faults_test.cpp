// Every fault strikes every operation.

#include "tests/faults/table.h"
#include "tests/restart/parallel.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <iostream>
#include <mutex>

namespace faults {

namespace {

void expectRight(const std::vector<Cell> &cells)
{
    std::mutex mutex;
    QStringList wrong;
    restart::inParallel(
        cells.size(),
        [&](std::size_t one) {
            const QStringList found = wrongIn(cells.at(one));
            const std::lock_guard<std::mutex> lock(mutex);
            for (const QString &sentence : found)
                wrong.append(cells.at(one).name() + QStringLiteral(": ") + sentence);
        },
        [](std::size_t) {});
    std::cout << cells.size() << " cells" << std::endl;
    for (const QString &sentence : wrong)
        ADD_FAILURE() << sentence.toStdString();
}

std::vector<Cell> chosen(const std::function<bool(const Cell &)> &isWanted)
{
    std::vector<Cell> cells;
    for (const Cell &cell : table())
        if (cell.expected != Outcome::NoMeaning && isWanted(cell))
            cells.push_back(cell);
    return cells;
}

TEST(FaultMatrixTest, EachFaultAndOperationOnce)
{
    expectRight(eachFaultAndOperationOnce());
}

TEST(FaultMatrixTest, All)
{
    expectRight(chosen([](const Cell &) { return true; }));
}

// For a look at a few: FAULTS_CELLS holds a pattern such as "status 30?/return"; a star stands for
// anything but the slash.
TEST(FaultMatrixTest, Chosen)
{
    const QString pattern = qEnvironmentVariable("FAULTS_CELLS");
    const auto wanted = QRegularExpression::fromWildcard(pattern);
    const auto cells
        = chosen([&](const Cell &cell) { return wanted.match(cell.name()).hasMatch(); });
    if (cells.empty())
        GTEST_SKIP() << "FAULTS_CELLS names no cell: " << pattern.toStdString();
    expectRight(cells);
}

} // namespace

} // namespace faults
