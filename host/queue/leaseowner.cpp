#include "host/queue/leaseowner.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>

#include <atomic>
#include <cerrno>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace leaseowner {

namespace {

// The name of a program stands in brackets and may hold anything.
constexpr qsizetype startTimeBehindName = 20;

/// When a process started, in the system's ticks since boot; empty when there is none.
QString startTime(qint64 process)
{
    QFile status(u"/proc/%1/stat"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(status.readAll());
    return text.mid(text.lastIndexOf(u')') + 1)
        .section(u' ', startTimeBehindName, startTimeBehindName);
}

// Process numbers mean something only within it.
QString processNamespace()
{
    return QFile::symLinkTarget(u"/proc/self/ns/pid"_s).section(u'[', 1).section(u']', 0, 0);
}

} // namespace

QString makeName()
{
    static std::atomic<int> made{0};
    const qint64 process = QCoreApplication::applicationPid();
    return u"%1@%2 started %3 in %4 #%5"_s.arg(QString::number(process),
        QSysInfo::machineHostName(), startTime(process), processNamespace(),
        QString::number(++made));
}

bool isGone(const QString &name)
{
    static const QRegularExpression parts(
        u"^([0-9]+)@(.*) started ([0-9]+) in ([0-9]*) #[0-9]+$"_s);
    const auto match = parts.match(name);
    if (!match.hasMatch() || match.captured(2) != QSysInfo::machineHostName()
        || match.captured(4) != processNamespace())
        return false;
    const qint64 process = match.captured(1).toLongLong();
    if (::kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH)
        return true;
    // Its number may have been given to another process meanwhile.
    const QString started = startTime(process);
    return !started.isEmpty() && started != match.captured(3);
}

bool isOver(const QString &name, const QDateTime &until, const QDateTime &now)
{
    return !until.isValid() || now >= until || isGone(name);
}

} // namespace leaseowner
