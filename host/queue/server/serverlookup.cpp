#include "host/queue/server/serverlookup.h"

#include "host/net/curlhandle.h"

namespace serverlookup {

Found find(const QString &host, int port, std::chrono::milliseconds limit)
{
    QUrl url;
    // Nothing of that protocol is sent.
    url.setScheme(QStringLiteral("http"));
    url.setHost(host);
    url.setPort(port);
    CurlHandle handle(url, {}, limit);
    handle.set(CURLOPT_CONNECT_ONLY, 1L);
    const CURLcode result
        = handle.setUpResult() == CURLE_OK ? curl_easy_perform(handle.get()) : handle.setUpResult();
    if (result != CURLE_OK)
        return {{}, QString::fromUtf8(handle.errorText(result))};
    const char *address = nullptr;
    curl_easy_getinfo(handle.get(), CURLINFO_PRIMARY_IP, &address);
    return {QString::fromLatin1(address), {}};
}

} // namespace serverlookup
