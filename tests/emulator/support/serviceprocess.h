#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace emulator {

/// korvel-service as a child process on a free port; ended with the object.
class ServiceProcess
{
public:
    /// What it writes on standard error goes into the file, or to the test's own when none is
    /// named.
    explicit ServiceProcess(const QStringList &arguments = {}, const QString &errorFile = {});
    ~ServiceProcess();

    QString url() const { return m_url; } ///< of the one line on standard output
    QString api(const char *path) const; ///< "…/api/path"

    /// Sends SIGTERM and waits; the exit status, -1 for a process that did not end by itself.
    int terminate();

    /// Sends SIGTERM and does not wait.
    void askToEnd() { m_process.terminate(); }

    bool isRunning();

    /// Waits for an end that the service has been asked for.
    int waitForEnd();

    QByteArray standardOutput(); ///< all of it, the first line included

private:
    QProcess m_process;
    QByteArray m_output;
    QString m_url;
};

/// A run that is expected to end by itself: exit status and what was written.
struct FinishedRun
{
    int status = 0;
    QByteArray output;
    QByteArray errors;
};

FinishedRun runService(const QStringList &arguments);

} // namespace emulator
