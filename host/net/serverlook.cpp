#include "host/net/serverlook.h"

#include "host/net/curlerror.h"
#include "host/net/curlhandle.h"
#include "host/net/restclient.h"

using namespace Qt::Literals::StringLiterals;

namespace {

std::chrono::milliseconds timeOf(const CurlHandle &handle, CURLINFO info)
{
    curl_off_t microseconds = 0;
    (curl_easy_getinfo)(handle.get(), info, &microseconds);
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::microseconds(microseconds));
}

QString addressOf(const CurlHandle &handle)
{
    const char *address = nullptr;
    (curl_easy_getinfo)(handle.get(), CURLINFO_PRIMARY_IP, &address);
    return QString::fromLatin1(address);
}

QList<Certificate> certificatesOf(const CurlHandle &handle)
{
    constexpr QByteArrayView mark = "Cert:";
    curl_certinfo *chain = nullptr;
    (curl_easy_getinfo)(handle.get(), CURLINFO_CERTINFO, &chain);
    QList<Certificate> found;
    for (int index = 0; chain && index < chain->num_of_certs; ++index)
        for (const curl_slist *field = chain->certinfo[index]; field; field = field->next)
            if (const QByteArrayView text(field->data); text.startsWith(mark))
                found.append(certificates::in(text.sliced(mark.size()).toByteArray()));
    return found;
}

} // namespace

ServerLook lookAtServer(const QUrl &url, std::chrono::seconds limit)
{
    CurlHandle handle(url, configuredExchangeSettings(), limit);
    handle.set(CURLOPT_CONNECT_ONLY, 1L);
    handle.set(CURLOPT_CERTINFO, 1L);
    // Going on with an agreed session would check no certificates.
    handle.set(CURLOPT_SSL_SESSIONID_CACHE, 0L);
    const CURLcode ready = handle.setUpResult();
    const CURLcode result = ready == CURLE_OK ? curl_easy_perform(handle.get()) : ready;
    ServerLook look;
    look.error = restClientErrorOf(result);
    look.detail = result == CURLE_OK ? QString() : QString::fromUtf8(handle.errorText(result));
    look.address = addressOf(handle);
    look.name = timeOf(handle, CURLINFO_NAMELOOKUP_TIME_T);
    look.connection = timeOf(handle, CURLINFO_CONNECT_TIME_T);
    look.tls = timeOf(handle, CURLINFO_APPCONNECT_TIME_T);
    look.certificates = certificatesOf(handle);
    if (result != CURLE_OK)
        handle.forgetShared();
    return look;
}
