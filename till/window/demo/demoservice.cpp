#include "till/window/demo/demoservice.h"

#include "host/framework/spokenerror.h"
#include "till/window/texts.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QStandardPaths>
#include <QTimer>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString programName = u"korvel-service"_s;
constexpr std::chrono::milliseconds longestEnd{3000};

} // namespace

QString DemoService::findProgram()
{
    const QFileInfo beside(QCoreApplication::applicationDirPath() + u'/' + programName);
    return beside.isExecutable() ? beside.filePath() : QStandardPaths::findExecutable(programName);
}

DemoService::DemoService(const QString &program, std::chrono::milliseconds limit)
{
    start(program);
    waitForUrl(limit);
    if (m_url.isValid())
        return;
    const tr::Tr reason = whyNot();
    end();
    throw SpokenError(texts::demoServiceNotStarted.arg(program).arg(reason));
}

DemoService::~DemoService()
{
    end();
}

void DemoService::start(const QString &program)
{
    m_process.setProgram(program);
    m_process.setArguments({u"--listen"_s, u"127.0.0.1:0"_s});
    // A window that is killed runs no destructor; what it was killed before has no parent by then.
    m_process.setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent)
            _exit(EXIT_FAILURE);
    });
    m_process.start(QIODevice::ReadOnly);
}

void DemoService::waitForUrl(std::chrono::milliseconds limit)
{
    QProgressDialog progress(texts::demoStarting.ui(), texts::cancel.ui(), 0, 0);
    progress.setWindowTitle(texts::windowTitle.ui());
    QEventLoop loop;
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, &loop, &QEventLoop::quit);
    QObject::connect(&progress, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    QObject::connect(&m_process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&m_process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &loop, [&] {
        if (!m_process.canReadLine())
            return;
        const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
        m_url = QUrl(line.section(u' ', -1), QUrl::StrictMode);
        loop.quit();
    });
    timer.start(limit);
    if (m_process.state() != QProcess::NotRunning)
        loop.exec();
}

tr::Tr DemoService::whyNot() const
{
    if (m_process.error() == QProcess::FailedToStart)
        return {tr::undefined, m_process.errorString()};
    if (m_process.state() == QProcess::NotRunning)
        return texts::demoServiceEnded.arg(QString::number(m_process.exitCode()));
    return texts::demoServiceSilent;
}

void DemoService::end()
{
    m_process.terminate();
    if (!m_process.waitForFinished(static_cast<int>(longestEnd.count())))
        m_process.kill();
}

} // namespace till
