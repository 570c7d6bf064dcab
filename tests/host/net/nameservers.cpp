#include "tests/host/net/nameservers.h"

#include <dlfcn.h>
#include <netdb.h>

#include <atomic>
#include <condition_variable>
#include <cstring>
#include <mutex>

namespace {

constexpr auto silentName = "silent.test";
constexpr auto knownName = "known.test";
constexpr auto loopback = "127.0.0.1";

std::atomic<int> lookupsOfKnownName = 0;

struct Lookups
{
    std::mutex mutex;
    std::condition_variable changed;
    bool silent = false;
    int waiting = 0;
};

// Never destroyed: libcurl's thread may still be in a look-up when the program ends.
Lookups &lookups()
{
    static auto *const instance = new Lookups;
    return *instance;
}

int waitInVain()
{
    std::unique_lock lock(lookups().mutex);
    ++lookups().waiting;
    lookups().changed.wait(lock, [] { return !lookups().silent; });
    --lookups().waiting;
    lookups().changed.notify_all();
    return EAI_AGAIN;
}

} // namespace

// Takes the place of the C library's for everything in this process.
extern "C" Q_DECL_EXPORT int getaddrinfo(
    const char *node, const char *service, const addrinfo *hints, addrinfo **result)
{
    if (node && std::strcmp(node, silentName) == 0)
        return waitInVain();
    const bool isKnown = node && std::strcmp(node, knownName) == 0;
    if (isKnown)
        ++lookupsOfKnownName;
    static const auto original
        = reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    return original(isKnown ? loopback : node, service, hints, result);
}

SilentNameServer::SilentNameServer()
{
    const std::lock_guard lock(lookups().mutex);
    lookups().silent = true;
}

SilentNameServer::~SilentNameServer()
{
    std::unique_lock lock(lookups().mutex);
    lookups().silent = false;
    lookups().changed.notify_all();
    lookups().changed.wait(lock, [] { return lookups().waiting == 0; });
}

QUrl SilentNameServer::url()
{
    return QUrl(QStringLiteral("http://") + QLatin1String(silentName));
}

CountingNameServer::CountingNameServer()
    : m_before(lookupsOfKnownName)
{ }

QUrl CountingNameServer::named(QUrl url)
{
    url.setHost(QLatin1String(knownName));
    return url;
}

int CountingNameServer::lookups() const
{
    return lookupsOfKnownName - m_before;
}
