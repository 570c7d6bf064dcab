#include "tests/emulator/support/serviceprocess.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr int greatestWait = 30'000; // milliseconds, for a machine under load
constexpr int didNotEnd = -1;

QString program()
{
    return QString::fromUtf8(KORVEL_SERVICE_PROGRAM);
}

} // namespace

ServiceProcess::ServiceProcess(const QStringList &arguments, const QString &errorFile)
{
    if (errorFile.isEmpty())
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    else
        m_process.setStandardErrorFile(errorFile);
    m_process.start(program(), arguments);
    while (!m_output.contains('\n') && m_process.waitForReadyRead(greatestWait))
        m_output += m_process.readAllStandardOutput();
    const QByteArray line = m_output.left(m_output.indexOf('\n'));
    const QByteArray prefix = "listening on ";
    EXPECT_TRUE(line.startsWith(prefix)) << m_output.constData();
    m_url = QString::fromUtf8(line.mid(prefix.size()));
}

ServiceProcess::~ServiceProcess()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.terminate();
    m_process.waitForFinished(greatestWait);
}

QString ServiceProcess::api(const char *path) const
{
    return m_url + u"api/"_s + QString::fromUtf8(path);
}

int ServiceProcess::terminate()
{
    m_process.terminate();
    return waitForEnd();
}

bool ServiceProcess::isRunning()
{
    return m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(0);
}

int ServiceProcess::waitForEnd()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(greatestWait))
        return didNotEnd;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : didNotEnd;
}

QByteArray ServiceProcess::standardOutput()
{
    return m_output += m_process.readAllStandardOutput();
}

FinishedRun runService(const QStringList &arguments)
{
    QProcess process;
    process.start(program(), arguments);
    const bool ended = process.waitForFinished(greatestWait);
    const bool normally = ended && process.exitStatus() == QProcess::NormalExit;
    return {normally ? process.exitCode() : didNotEnd, process.readAllStandardOutput(),
        process.readAllStandardError()};
}

} // namespace emulator
