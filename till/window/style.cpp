#include "till/window/style.h"

#include <QApplication>
#include <QFile>

// Resources of a static library are registered by hand, from outside of any namespace.
static void registerResources()
{
    Q_INIT_RESOURCE(till_window);
}

namespace till {

void applyStyle()
{
    registerResources();
    QFile sheet(QStringLiteral(":/korvel/window.qss"));
    if (sheet.open(QIODevice::ReadOnly))
        qApp->setStyleSheet(QString::fromUtf8(sheet.readAll()));
}

} // namespace till
