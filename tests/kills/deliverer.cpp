#include "tests/kills/deliverer.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

// This header of the C library does not know of C++ before version 2.37.
extern "C" {
#include <sys/pidfd.h>
}

using namespace Qt::StringLiterals;

namespace kills {

namespace {

constexpr int greatestWait = 60'000; // milliseconds, for a machine under load
// Behind that a service that has nothing to do yet says nothing for a while.
constexpr int greatestSilence = 1'500; // milliseconds

} // namespace

Deliverer::Deliverer(const restart::Premises &premises, const QProcessEnvironment &environment,
    const QStringList &words)
{
    m_process.setProcessEnvironment(environment);
    m_process.start(QStringLiteral(KILLS_TILL),
        QStringList{u"queue"_s} + words
            + QStringList{u"--config"_s, premises.settings(), u"--state"_s, premises.state()});
    if (!m_process.waitForStarted(greatestWait))
        throw std::runtime_error("the deliverer did not start");
    m_handle = ::pidfd_open(static_cast<pid_t>(m_process.processId()), 0);
    if (m_handle < 0)
        throw std::runtime_error("the deliverer ended at once");
}

Deliverer::~Deliverer()
{
    m_process.kill();
    m_process.waitForFinished(greatestWait);
    ::close(m_handle);
}

void Deliverer::strikeDead() const
{
    ::pidfd_send_signal(m_handle, SIGKILL, nullptr, 0);
}

void Deliverer::awaitLine()
{
    if (m_process.state() == QProcess::Running && !m_process.canReadLine())
        m_process.waitForReadyRead(greatestSilence);
}

void Deliverer::awaitEnd()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(greatestWait))
        throw std::runtime_error("the deliverer does not end");
}

bool Deliverer::wasKilled() const
{
    return m_process.exitStatus() == QProcess::CrashExit && m_process.exitCode() == SIGKILL;
}

} // namespace kills
