#pragma once

#include "tests/restart/premises.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace kills {

/// A running `korvel-till queue …`. Killed with the object when it still runs.
class Deliverer
{
public:
    /// @param words behind "queue", for instance "deliver".
    /// @throws std::runtime_error when it does not start.
    Deliverer(const restart::Premises &premises, const QProcessEnvironment &environment,
        const QStringList &words);
    ~Deliverer();
    Q_DISABLE_COPY_MOVE(Deliverer)

    /// Sends it SIGKILL without waiting; nothing when it has ended. From any thread.
    void strikeDead() const;
    /// Waits for a line of its or for its end.
    void awaitLine();
    /// Waits for its end.
    /// @throws std::runtime_error when it does not come within a long time.
    void awaitEnd();
    /// Only after its end.
    [[nodiscard]] bool wasKilled() const;
    /// Its exit status. Only after an end of its own.
    [[nodiscard]] int status() const { return m_process.exitCode(); }

private:
    QProcess m_process;
    int m_handle = -1; ///< of the process; unlike its number never another one's
};

} // namespace kills
