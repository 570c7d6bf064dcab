#pragma once

#include <QByteArray>

#include <ctime>

namespace emulator {

/// The service's machine stands in this time zone as long as the object lives.
class Zone
{
public:
    explicit Zone(const char *name)
        : m_before(qgetenv("TZ"))
    {
        qputenv("TZ", name);
        ::tzset();
    }
    ~Zone()
    {
        qputenv("TZ", m_before);
        ::tzset();
    }
    Zone(const Zone &) = delete;
    Zone &operator=(const Zone &) = delete;

private:
    QByteArray m_before;
};

} // namespace emulator
