// Windows without a screen.

#include "till/window/style.h"

#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    // Amounts as they stand in the tests, whatever this machine speaks.
    QLocale::setDefault(QLocale::c());
    till::applyStyle();
    return RUN_ALL_TESTS();
}
