#include "tests/till/window/keyboardpipe.h"

#include <QFile>
#include <QUuid>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

// Qt takes no other place than /dev for a device.
KeyboardPipe::KeyboardPipe()
    : m_name(u"/dev/shm/korvel-keyboard-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    constexpr mode_t onlyMine = 0600;
    EXPECT_EQ(mkfifo(qPrintable(m_name), onlyMine), 0) << std::strerror(errno);
    // For both directions, so that neither side waits for the other.
    m_descriptor = open(qPrintable(m_name), O_RDWR | O_CLOEXEC);
    EXPECT_GE(m_descriptor, 0) << std::strerror(errno);
}

KeyboardPipe::~KeyboardPipe()
{
    close(m_descriptor);
    QFile::remove(m_name);
}

QString KeyboardPipe::plugin() const
{
    return u"evdevkeyboard:"_s + m_name;
}

void KeyboardPipe::press(int key) const
{
    for (const int value : {1, 0}) {
        write(EV_KEY, key, value);
        write(EV_SYN, SYN_REPORT, 0);
    }
}

void KeyboardPipe::type(const QString &digits) const
{
    for (const QChar digit : digits)
        press(digit == u'0' ? KEY_0 : KEY_1 + digit.digitValue() - 1);
}

void KeyboardPipe::write(int type, int code, int value) const
{
    input_event event{};
    event.type = static_cast<decltype(event.type)>(type);
    event.code = static_cast<decltype(event.code)>(code);
    event.value = value;
    EXPECT_EQ(::write(m_descriptor, &event, sizeof event), ssize_t{sizeof event});
}
