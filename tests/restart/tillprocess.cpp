#include "tests/restart/tillprocess.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

// This header of the C library does not know of C++ before version 2.37.
extern "C" {
#include <sys/pidfd.h>
}

using namespace Qt::StringLiterals;

namespace restart {

namespace {

constexpr int greatestWait = 60'000; // milliseconds, for a machine under load

} // namespace

TillProcess::TillProcess(const Premises &premises, const QProcessEnvironment &environment)
{
    m_process.setProcessEnvironment(environment);
    m_process.start(QStringLiteral(RESTART_TILL),
        {u"run"_s, u"--config"_s, premises.settings(), u"--plugin"_s,
            QStringLiteral(RESTART_PLUGIN), u"--state"_s, premises.state(), u"--transcript"_s,
            u"-"_s});
    if (!m_process.waitForStarted(greatestWait))
        throw std::runtime_error("the till did not start");
    m_handle = ::pidfd_open(static_cast<pid_t>(m_process.processId()), 0);
    if (m_handle < 0)
        throw std::runtime_error("the till ended at once");
}

TillProcess::~TillProcess()
{
    kill();
    ::close(m_handle);
}

void TillProcess::strikeDead() const
{
    ::pidfd_send_signal(m_handle, SIGKILL, nullptr, 0);
}

std::optional<Json> TillProcess::tell(const QString &command)
{
    m_process.write(command.toUtf8() + '\n');
    while (!m_process.canReadLine() && m_process.state() == QProcess::Running)
        if (!m_process.waitForReadyRead(greatestWait) && m_process.state() == QProcess::Running)
            throw std::runtime_error("the till does not answer to " + command.toStdString());
    if (!m_process.canReadLine())
        return std::nullopt;
    return Json::parse(m_process.readLine().toStdString());
}

void TillProcess::kill()
{
    m_process.kill();
    awaitEnd();
}

void TillProcess::finish()
{
    m_process.closeWriteChannel();
    if (!awaitEnd())
        throw std::runtime_error("the till does not end");
}

bool TillProcess::awaitEnd()
{
    return m_process.state() == QProcess::NotRunning || m_process.waitForFinished(greatestWait);
}

TillEnd TillProcess::end(bool byUs) const
{
    // Of a process that was ended by a signal this "code" is the signal.
    const int code = m_process.exitCode();
    return m_process.exitStatus() == QProcess::CrashExit ? TillEnd{byUs, code, 0}
                                                         : TillEnd{byUs, 0, code};
}

QString TillProcess::complaint()
{
    return QString::fromUtf8(m_process.readAllStandardError()).simplified();
}

} // namespace restart
