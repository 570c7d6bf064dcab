#include "till/window/pendinginput.h"

#include <QCoreApplication>
#include <QEvent>

namespace till {

namespace {

class InputSink : public QObject
{
public:
    InputSink() { QCoreApplication::instance()->installEventFilter(this); }

    bool eventFilter(QObject *, QEvent *event) override
    {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::Wheel:
        case QEvent::Close:
            return true;
        default:
            return false;
        }
    }
};

} // namespace

void dropPendingInput()
{
    const InputSink sink;
    QCoreApplication::processEvents();
}

} // namespace till
