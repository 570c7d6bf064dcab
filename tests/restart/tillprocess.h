#pragma once

#include "tests/restart/premises.h"

#include <QProcess>
#include <QString>

#include <nlohmann/json.hpp>

#include <optional>

namespace restart {

using Json = nlohmann::json;

/// How a till came to its end.
struct TillEnd
{
    bool byUs = false; ///< killed on purpose
    int signal = 0; ///< 0: it ended by itself
    int status = 0; ///< its exit status when it ended by itself
};

/// A running `korvel-till` that is fed one command at a time. Killed with the object when it still
/// runs.
class TillProcess
{
public:
    explicit TillProcess(const Premises &premises,
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());
    ~TillProcess();

    [[nodiscard]] qint64 processId() const { return m_process.processId(); }
    /// Sends it SIGKILL without waiting; nothing when it has ended. From any thread.
    void strikeDead() const;
    /// Gives it a command and waits for the command's object.
    /// @return nothing when the till has ended instead.
    /// @throws std::runtime_error when it does neither within a long time.
    std::optional<Json> tell(const QString &command);
    /// Kills it and waits.
    void kill();
    /// Ends its commands and waits.
    void finish();
    /// Waits for an end that is on its way; whether it has come.
    bool awaitEnd();
    /// @param byUs whether it was killed on purpose. Only after its end.
    [[nodiscard]] TillEnd end(bool byUs) const;
    /// What it wrote to standard error so far, in one line.
    [[nodiscard]] QString complaint();

private:
    QProcess m_process;
    int m_handle = -1; ///< of the process; unlike its number never another one's
};

} // namespace restart
