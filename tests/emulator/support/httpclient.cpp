#include "tests/emulator/support/httpclient.h"

#include <curl/curl.h>

#include <memory>

namespace emulator {

namespace {

// A stuck service ends here; under the sanitizers thousands of positions take most of a minute.
constexpr long greatestSeconds = 120;

std::size_t append(char *bytes, std::size_t size, std::size_t count, void *to)
{
    static_cast<QByteArray *>(to)->append(bytes, static_cast<qsizetype>(size * count));
    return size * count;
}

struct Release
{
    void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};

using Headers = std::unique_ptr<curl_slist, Release>;

Headers headersOf(const QStringList &lines)
{
    curl_slist *list = nullptr;
    for (const QString &line : lines)
        list = curl_slist_append(list, line.toUtf8().constData());
    return Headers(list);
}

HttpOutcome perform(
    const char *method, const QString &url, const QByteArray *body, const HttpOptions &options)
{
    const std::unique_ptr<CURL, Release> handle(curl_easy_init());
    const Headers headers = headersOf(options.headers);
    HttpOutcome outcome;
    CURL *curl = handle.get();
    curl_easy_setopt(curl, CURLOPT_URL, url.toUtf8().constData());
    curl_easy_setopt(curl, CURLOPT_PROXY, "");
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_TIMEOUT, greatestSeconds);
    curl_easy_setopt(curl, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, append);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &outcome.body);
    curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, append);
    curl_easy_setopt(curl, CURLOPT_HEADERDATA, &outcome.headers);
    if (!options.userAndPassword.isEmpty())
        curl_easy_setopt(curl, CURLOPT_USERPWD, options.userAndPassword.toUtf8().constData());
    if (!options.caFile.isEmpty())
        curl_easy_setopt(curl, CURLOPT_CAINFO, options.caFile.toUtf8().constData());
    curl_easy_setopt(curl, CURLOPT_CUSTOMREQUEST, method);
    if (body) {
        curl_easy_setopt(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body->size()));
        curl_easy_setopt(curl, CURLOPT_POSTFIELDS, body->constData());
    }
    outcome.curlCode = static_cast<int>(curl_easy_perform(curl));
    long status = 0;
    curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
    outcome.status = static_cast<int>(status);
    return outcome;
}

} // namespace

HttpOutcome httpGet(const QString &url, const HttpOptions &options)
{
    return perform("GET", url, nullptr, options);
}

HttpOutcome httpDelete(const QString &url, const HttpOptions &options)
{
    return perform("DELETE", url, nullptr, options);
}

HttpOutcome httpPost(const QString &url, const QByteArray &body, const HttpOptions &options)
{
    return perform("POST", url, &body, options);
}

QByteArray withoutDate(const QByteArray &headers)
{
    QByteArrayList lines = headers.split('\n');
    lines.removeIf([](const QByteArray &line) { return line.startsWith("Date:"); });
    return lines.join('\n');
}

} // namespace emulator
