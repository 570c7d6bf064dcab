// Prints how often a till flushes the disk at each command of a script: "count_flushes SCRIPT...".

#include "tests/powercut/flushes.h"

#include <QCoreApplication>

#include <iostream>

namespace {

constexpr int exitWrongUse = 2;

} // namespace

int main(int count, char **words)
{
    const QCoreApplication application(count, words);
    try {
        const QStringList scripts = QCoreApplication::arguments().mid(1);
        for (const QString &script : scripts)
            powercut::printFlushes(std::cout, powercut::flushesOf(script));
        return EXIT_SUCCESS;
    } catch (const std::exception &error) {
        std::cerr << "count-flushes: " << error.what() << std::endl;
        return exitWrongUse;
    }
}
