// For tests of what a cashier reads: the till speaks English.

#include "till/language/language.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleMock(&argc, argv);
    const QCoreApplication application(argc, argv);
    till::speak(till::Language::English);
    return RUN_ALL_TESTS();
}
