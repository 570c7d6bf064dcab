#include "tests/faults/machine.h"

#include <sys/mman.h>

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

DiskState diskStateOf(Kind kind)
{
    switch (kind) {
    case Kind::DiskFull:
        return DiskState::Full;
    case Kind::DiskReadOnly:
        return DiskState::ReadOnly;
    case Kind::DiskGone:
        return DiskState::Gone;
    case Kind::DiskSlow:
        return DiskState::Slow;
    default:
        return DiskState::Sound;
    }
}

} // namespace

Machine::Machine(const QString &stateFolder)
{
    if (!m_file.open() || !m_file.resize(sizeof(MachineControl)))
        throw std::runtime_error("no file for the machine's orders");
    void *const page = ::mmap(
        nullptr, sizeof(MachineControl), PROT_READ | PROT_WRITE, MAP_SHARED, m_file.handle(), 0);
    if (page == MAP_FAILED)
        throw std::runtime_error("the machine's orders cannot be shared");
    m_control = new (page) MachineControl;
    set("LD_PRELOAD", QStringLiteral(FAULTS_MACHINE));
    set(controlVariable, m_file.fileName());
    set(folderVariable, stateFolder);
    // The address sanitizer wants to be loaded before anything else, and says so by ending.
    set("ASAN_OPTIONS", qEnvironmentVariable("ASAN_OPTIONS") + u":verify_asan_link_order=0");
}

Machine::~Machine()
{
    ::munmap(m_control, sizeof(MachineControl));
}

void Machine::set(const char *variable, const QString &value)
{
    m_environment.insert(QString::fromLatin1(variable), value);
}

bool Machine::order(Kind kind, quint16 refusingPort, quint16 silentPort) const
{
    switch (kind) {
    case Kind::Refused:
        m_control->otherPort = refusingPort;
        return true;
    case Kind::Unreachable:
        m_control->otherPort = silentPort;
        return true;
    case Kind::NameUnknown:
        m_control->nameIsUnknown = 1;
        return true;
    default:
        break;
    }
    const DiskState disk = diskStateOf(kind);
    m_control->room = 0;
    m_control->disk = disk;
    return disk != DiskState::Sound;
}

void Machine::heal() const
{
    m_control->disk = DiskState::Sound;
    m_control->nameIsUnknown = 0;
    m_control->otherPort = 0;
}

} // namespace faults
