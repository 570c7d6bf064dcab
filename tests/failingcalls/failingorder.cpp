#include "tests/failingcalls/failingorder.h"

#include "tests/faults/machine/control.h"

#include <sys/mman.h>

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace failingcalls {

FailingOrder::FailingOrder(Call call, qint64 failing)
    : m_call(call)
{
    if (!m_file.open() || !m_file.resize(sizeof(Control)))
        throw std::runtime_error("no file for the order");
    void *const page
        = ::mmap(nullptr, sizeof(Control), PROT_READ | PROT_WRITE, MAP_SHARED, m_file.handle(), 0);
    if (page == MAP_FAILED)
        throw std::runtime_error("the order cannot be shared");
    m_control = new (page) Control;
    m_control->failing = failing;
}

FailingOrder::~FailingOrder()
{
    ::munmap(m_control, sizeof(Control));
}

QProcessEnvironment FailingOrder::environment(const QString &stateFolder) const
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, QStringLiteral(FAILING_CALLS));
    environment.insert(QString::fromLatin1(controlVariable), m_file.fileName());
    environment.insert(QString::fromLatin1(faults::folderVariable), stateFolder);
    // The address sanitizer wants to be loaded before anything else, and says so by ending.
    environment.insert(
        u"ASAN_OPTIONS"_s, qEnvironmentVariable("ASAN_OPTIONS") + u":verify_asan_link_order=0"_s);
    return environment;
}

void FailingOrder::begin()
{
    m_control->call = m_call;
}

} // namespace failingcalls
