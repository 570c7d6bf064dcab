#include "tests/soak/process.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace soak {

namespace {

constexpr qint64 bytesPerKilobyte = 1024;

QByteArray contentsOf(const QString &name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + name.toStdString());
    return file.readAll();
}

qint64 ownMemory(const QString &folder)
{
    const auto lines = contentsOf(folder + u"/status").split('\n');
    for (const QByteArray &line : lines)
        if (line.startsWith("RssAnon:"))
            return line.simplified().split(' ').at(1).toLongLong() * bytesPerKilobyte;
    throw std::runtime_error("the system does not say what a process holds in memory");
}

} // namespace

ProcessState stateOf(qint64 processId)
{
    const QString folder = u"/proc/%1"_s.arg(processId);
    ProcessState state;
    state.memory = ownMemory(folder);
    state.descriptors
        = static_cast<int>(QDir(folder + u"/fd")
                               .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
                               .size());
    state.processor = std::chrono::nanoseconds(
        contentsOf(folder + u"/schedstat").split(' ').constFirst().toLongLong());
    return state;
}

} // namespace soak
