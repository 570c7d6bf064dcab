// Runs tests that need a server of the test program's own; it ends before the application does.

#include "tests/host/queue/postgresserver.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <cstdio>

// Without a server there is nothing to test against.
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && !PostgresServer::instance()) {
        std::puts("skipped: no PostgreSQL server is installed; tools/setup installs it");
        return 77;
    }
    return RUN_ALL_TESTS();
}
