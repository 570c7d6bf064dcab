#pragma once

#include <QtGlobal>

namespace till {

/// Whether somebody wants the program to end: a service manager, or a person at the keyboard.
///
/// As long as it lives SIGTERM, SIGINT and SIGHUP no longer end the program but are noted here, so
/// that the message in hand is finished and not taken for one that ended its deliverer. A process
/// makes one at a time; to be asked on any thread.
class StopRequest
{
public:
    /// @throws std::system_error when the system has no room for it.
    StopRequest();
    ~StopRequest();
    Q_DISABLE_COPY_MOVE(StopRequest)

    [[nodiscard]] bool isMade() const;
    /// A descriptor that is readable once the request is made, for poll(2).
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

} // namespace till
