// Amounts and dates as they stand in the tests, whatever this machine speaks.

#include <QLocale>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleMock(&argc, argv);
    QLocale::setDefault(QLocale::c());
    return RUN_ALL_TESTS();
}
