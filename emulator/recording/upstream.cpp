#include "emulator/recording/upstream.h"

#include <QFile>

#include <curl/curl.h>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

constexpr long on = 1;
constexpr long matchHostName = 2;
constexpr qsizetype greatestAnswer = qsizetype{64} * 1024 * 1024;

struct Release
{
    void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
    void operator()(curl_slist *list) const { curl_slist_free_all(list); }
};

using Handle = std::unique_ptr<CURL, Release>;

class HeaderLines
{
public:
    void add(const QByteArray &line) { reset(curl_slist_append(m_list.get(), line.constData())); }
    void add(const QByteArray &name, const QByteArray &value)
    {
        // The library's way to write a header without a value.
        if (value.isEmpty())
            add(name + ';');
        else
            add(name + ": " + value);
    }
    curl_slist *get() const { return m_list.get(); }

private:
    void reset(curl_slist *list)
    {
        if (!list)
            throw std::bad_alloc();
        [[maybe_unused]] const auto *former = m_list.release();
        m_list.reset(list);
    }

    std::unique_ptr<curl_slist, Release> m_list;
};

/// Collects what the library hands over.
struct Received
{
    QByteArray body;
    bool isHeadWhole = false;
    bool isTooLarge = false;
};

std::size_t onHeadLine(const char *bytes, std::size_t, std::size_t count, void *to)
{
    // An interim answer has a head of its own before the answer's.
    static_cast<Received *>(to)->isHeadWhole
        = QByteArrayView(bytes, static_cast<qsizetype>(count)).trimmed().isEmpty();
    return count;
}

std::size_t onBody(const char *bytes, std::size_t, std::size_t count, void *to)
{
    auto *received = static_cast<Received *>(to);
    received->isTooLarge = received->body.size() + static_cast<qsizetype>(count) > greatestAnswer;
    if (received->isTooLarge)
        return CURL_WRITEFUNC_ERROR;
    received->body.append(bytes, static_cast<qsizetype>(count));
    return count;
}

int onProgress(void *isCancelled, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
    return *static_cast<const std::atomic<bool> *>(isCancelled) ? 1 : 0;
}

bool isPassedOn(const QByteArray &name)
{
    return name.compare("Content-Type", Qt::CaseInsensitive) == 0
        || name.compare("SOAPAction", Qt::CaseInsensitive) == 0;
}

bool has(const HttpRequest &request, const char *name)
{
    return std::any_of(request.headers.begin(), request.headers.end(),
        [&](const auto &header) { return header.first.compare(name, Qt::CaseInsensitive) == 0; });
}

HeaderLines headersFor(const HttpRequest &request, const QByteArray &authorization)
{
    HeaderLines lines;
    for (const auto &[name, value] : request.headers) {
        if (isPassedOn(name))
            lines.add(name, value);
    }
    if (!authorization.isEmpty())
        lines.add("Authorization", authorization);
    // What the library would add by itself: a type that the till has not given, and a question
    // before large bodies that some services never answer.
    if (!has(request, "Content-Type"))
        lines.add("Content-Type:");
    lines.add("Expect:");
    return lines;
}

void setConnection(CURL *curl, const UpstreamSettings &settings)
{
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    curl_easy_setopt(
        curl, CURLOPT_TIMEOUT_MS, long{std::chrono::milliseconds(settings.limit).count()});
    // On a connection used before, the library would send a request again that got no answer.
    curl_easy_setopt(curl, CURLOPT_FRESH_CONNECT, on);
    curl_easy_setopt(curl, CURLOPT_FORBID_REUSE, on);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, on);
    // Otherwise the end waits for the resolver, however short the limit.
    curl_easy_setopt(curl, CURLOPT_QUICK_EXIT, on);
    // Empty, so that the environment has no say.
    curl_easy_setopt(curl, CURLOPT_PROXY, "");
    curl_easy_setopt(curl, CURLOPT_NOPROXY, "");
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYPEER, on);
    curl_easy_setopt(curl, CURLOPT_SSL_VERIFYHOST, matchHostName);
    if (!settings.caFile.isEmpty()) {
        curl_easy_setopt(curl, CURLOPT_CAINFO, QFile::encodeName(settings.caFile).constData());
        curl_easy_setopt(curl, CURLOPT_CAPATH, static_cast<const char *>(nullptr));
    }
}

void setRequest(CURL *curl, const QByteArray &url, const QByteArray &body)
{
    curl_easy_setopt(curl, CURLOPT_URL, url.constData());
    curl_easy_setopt(curl, CURLOPT_PATH_AS_IS, on);
    curl_easy_setopt(curl, CURLOPT_POST, on);
    curl_easy_setopt(curl, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(body.size()));
    curl_easy_setopt(curl, CURLOPT_POSTFIELDS, body.constData());
}

void setCallbacks(CURL *curl, Received &received, const std::atomic<bool> &isCancelled)
{
    curl_easy_setopt(curl, CURLOPT_HEADERFUNCTION, onHeadLine);
    curl_easy_setopt(curl, CURLOPT_HEADERDATA, &received);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, onBody);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &received);
    curl_easy_setopt(curl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(curl, CURLOPT_XFERINFOFUNCTION, onProgress);
    curl_easy_setopt(curl, CURLOPT_XFERINFODATA, &isCancelled);
}

QString failureOf(CURLcode result, const Received &received, const char *detail)
{
    if (result == CURLE_ABORTED_BY_CALLBACK)
        return u"the recorder was stopped"_s;
    if (received.isTooLarge)
        return u"the answer is larger than %1 MiB"_s.arg(greatestAnswer / (qsizetype{1024} * 1024));
    if (result != CURLE_OK)
        return QString::fromLocal8Bit(*detail ? detail : curl_easy_strerror(result)).simplified();
    // Of a head that was cut the library says nothing.
    if (!received.isHeadWhole)
        return u"the connection was closed inside the answer's head"_s;
    return {};
}

UpstreamAnswer answerFrom(CURL *curl, const Received &received)
{
    long status = 0;
    const char *contentType = nullptr;
    curl_easy_getinfo(curl, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(curl, CURLINFO_CONTENT_TYPE, &contentType);
    return {{}, static_cast<int>(status), contentType, received.body};
}

bool isLibraryStarted()
{
    // The library would write the keys of encrypted connections to a file that this names.
    qunsetenv("SSLKEYLOGFILE");
    static const bool isStarted = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    return isStarted;
}

} // namespace

Upstream::Upstream(UpstreamSettings settings)
    : m_settings(std::move(settings))
{
    if (!isLibraryStarted())
        throw UpstreamError(u"the library for HTTP cannot be started"_s);
}

QByteArray Upstream::authorizationFor(const HttpRequest &request) const
{
    return request.authorization.isEmpty() ? m_settings.address.authorization()
                                           : request.authorization;
}

UpstreamAnswer Upstream::forward(const HttpRequest &request) const
{
    const Handle handle(curl_easy_init());
    if (!handle)
        throw std::bad_alloc();
    const HeaderLines headers = headersFor(request, authorizationFor(request));
    std::array<char, CURL_ERROR_SIZE> detail{};
    Received received;
    CURL *curl = handle.get();
    setConnection(curl, m_settings);
    setRequest(curl, m_settings.address.urlFor(request.target), request.body);
    setCallbacks(curl, received, m_isCancelled);
    curl_easy_setopt(curl, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, detail.data());
    const CURLcode result = curl_easy_perform(curl);
    const QString failure = failureOf(result, received, detail.data());
    return failure.isEmpty() ? answerFrom(curl, received) : UpstreamAnswer{failure, 0, {}, {}};
}

} // namespace emulator
