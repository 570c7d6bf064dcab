// Windows without a screen.

#include "till/window/style.h"

#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    till::applyStyle();
    return RUN_ALL_TESTS();
}
