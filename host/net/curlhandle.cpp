#include "host/net/curlhandle.h"

#include "host/net/exchangememory.h"

namespace {

constexpr long on = 1;
constexpr long off = 0;
constexpr long matchHostName = 2;

} // namespace

bool CurlHandle::setUpLibrary()
{
    static const bool done = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return done;
}

CurlHandle::CurlHandle(
    const QUrl &url, const ExchangeSettings &settings, std::chrono::milliseconds limit)
    : m_handle(setUpLibrary() ? curl_easy_init() : nullptr)
{
    set(CURLOPT_ERRORBUFFER, m_errorText.data());
    set(CURLOPT_URL, url.toEncoded(QUrl::RemoveFragment).constData());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_FOLLOWLOCATION, off);
    set(CURLOPT_TIMEOUT_MS, long{limit.count()});
    setConnection(settings);
    setTls(settings);
    share(url, settings);
}

void CurlHandle::share(const QUrl &url, const ExchangeSettings &settings)
{
    m_shared = ExchangeMemory::instance().recall(settings, std::chrono::steady_clock::now());
    set(CURLOPT_SHARE, m_shared->namesAndSessions.get());
    // A proxy with TLS has authorities of its own, which these would take the place of.
    if (url.scheme() == QLatin1String("https") && settings.proxy.isEmpty())
        m_shared->authorities->useFor(m_handle.get());
}

void CurlHandle::forgetShared()
{
    ExchangeMemory::instance().forget(m_shared);
}

void CurlHandle::setConnection(const ExchangeSettings &settings)
{
    set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    // On a connection used before, libcurl would send a request again that got no answer.
    set(CURLOPT_FRESH_CONNECT, on);
    set(CURLOPT_FORBID_REUSE, on);
    set(CURLOPT_NOSIGNAL, on);
    // Without it the end of an exchange waits for the resolver's thread, and so for a name server
    // that keeps silent, however short the limit.
    set(CURLOPT_QUICK_EXIT, on);
    // Empty texts keep the environment's "http_proxy" and "no_proxy" out.
    set(CURLOPT_PROXY, settings.proxy.constData());
    set(CURLOPT_NOPROXY, "");
}

void CurlHandle::setTls(const ExchangeSettings &settings)
{
    set(CURLOPT_SSL_VERIFYPEER, on);
    set(CURLOPT_SSL_VERIFYHOST, matchHostName);
    if (!settings.caFile.isEmpty()) {
        set(CURLOPT_CAINFO, settings.caFile.constData());
        set(CURLOPT_CAPATH, static_cast<const char *>(nullptr));
    }
    if (!settings.clientCert.isEmpty())
        set(CURLOPT_SSLCERT, settings.clientCert.constData());
    if (!settings.clientKey.isEmpty())
        set(CURLOPT_SSLKEY, settings.clientKey.constData());
}

void CurlHandle::note(CURLcode result)
{
    if (m_setUpResult == CURLE_OK)
        m_setUpResult = result;
}

long CurlHandle::number(CURLINFO info) const
{
    long value = 0;
    (curl_easy_getinfo)(m_handle.get(), info, &value);
    return value;
}

QByteArray CurlHandle::errorText(CURLcode result) const
{
    const QByteArray text(m_errorText.data());
    return text.isEmpty() ? QByteArray(curl_easy_strerror(result)) : text.trimmed();
}
