#include "host/net/exchange.h"

#include "host/net/answercollector.h"
#include "host/net/curlerror.h"
#include "host/net/curlhandle.h"
#include "host/net/exchangeprogress.h"
#include "host/net/requestheaders.h"
#include "host/net/restclient.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int firstSuccess = 200;
constexpr int firstFailure = 300;

class HeaderList
{
public:
    explicit HeaderList(const QList<QByteArray> &lines)
    {
        for (const QByteArray &line : lines)
            append(line);
    }
    ~HeaderList() { curl_slist_free_all(m_list); }
    Q_DISABLE_COPY_MOVE(HeaderList)

    [[nodiscard]] curl_slist *get() const { return m_list; }
    /// Whether memory was enough for all of them.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

private:
    void append(const QByteArray &line)
    {
        if (curl_slist *const longer = curl_slist_append(m_list, line.constData()))
            m_list = longer;
        else
            m_isComplete = false;
    }

    curl_slist *m_list = nullptr;
    bool m_isComplete = true;
};

QByteArrayView received(const char *bytes, std::size_t count)
{
    return {bytes, static_cast<qsizetype>(count)};
}

// libcurl's callbacks: anything but the count ends the exchange.
std::size_t onHeadLine(const char *bytes, std::size_t, std::size_t count, void *collector)
{
    return static_cast<AnswerCollector *>(collector)->takeHeadLine(received(bytes, count)) ? count
                                                                                           : 0;
}

std::size_t onBody(const char *bytes, std::size_t, std::size_t count, void *collector)
{
    const bool taken = static_cast<AnswerCollector *>(collector)->takeBody(received(bytes, count));
    return taken ? count : CURL_WRITEFUNC_ERROR;
}

using Clock = std::chrono::steady_clock;

ExchangeProgress &watcher()
{
    static ExchangeProgress progress;
    return progress;
}

int onProgress(void *begun, curl_off_t, curl_off_t, curl_off_t, curl_off_t)
{
    const auto passed = Clock::now() - *static_cast<const Clock::time_point *>(begun);
    watcher()(std::chrono::duration_cast<std::chrono::milliseconds>(passed));
    return 0;
}

void setWatcher(CurlHandle &handle, Clock::time_point &begun)
{
    if (!watcher())
        return;
    handle.set(CURLOPT_NOPROGRESS, 0L);
    handle.set(CURLOPT_XFERINFOFUNCTION, &onProgress);
    handle.set(CURLOPT_XFERINFODATA, &begun);
}

ExchangeOutcome failure(int error, const QString &detail, const QByteArray &body = {})
{
    return {error, body, detail, {}};
}

ExchangeOutcome answered(int status, const AnswerCollector &answer)
{
    // Of a head that was cut libcurl says nothing, and an interim answer is not the answer.
    if (!answer.isHeadComplete() || status < firstSuccess)
        return failure(
            RestClient::AnswerCut, u"the connection was closed inside the answer's head"_s);
    const QString detail = u"status %1, %2 bytes"_s.arg(status).arg(answer.body().size());
    if (status >= firstFailure)
        return failure(status, detail, answer.body());
    return {RestClient::None, answer.body(), detail, {}};
}

ExchangeOutcome outcome(const CurlHandle &handle, CURLcode result, const AnswerCollector &answer)
{
    if (answer.isTooLarge())
        return failure(RestClient::AnswerTooLarge,
            u"the answer was dropped after %1 bytes of its body"_s.arg(answer.body().size()),
            answer.body());
    if (result == CURLE_OK)
        return answered(static_cast<int>(handle.number(CURLINFO_RESPONSE_CODE)), answer);
    const QString detail = QString::fromUtf8(handle.errorText(result));
    // A proxy that refuses to connect looks to libcurl like a broken connection.
    const int proxyStatus = static_cast<int>(handle.number(CURLINFO_HTTP_CONNECTCODE));
    return failure(proxyStatus >= firstFailure ? proxyStatus : restClientErrorOf(result), detail);
}

} // namespace

void setExchangeProgress(ExchangeProgress progress)
{
    watcher() = std::move(progress);
}

ExchangeOutcome exchange(const ExchangeRequest &request, const ExchangeSettings &settings)
{
    AnswerCollector answer(settings.maxAnswerBytes);
    const HeaderList headers(headerLines(request.headers));
    CurlHandle handle(request.url, settings, request.limit);
    handle.set(CURLOPT_POST, 1L);
    handle.set(CURLOPT_POSTFIELDS, request.body.constData());
    handle.set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
    handle.set(CURLOPT_HTTPHEADER, headers.get());
    handle.set(CURLOPT_HEADERFUNCTION, &onHeadLine);
    handle.set(CURLOPT_HEADERDATA, &answer);
    handle.set(CURLOPT_WRITEFUNCTION, &onBody);
    handle.set(CURLOPT_WRITEDATA, &answer);
    Clock::time_point begun = Clock::now();
    setWatcher(handle, begun);
    // A request without one of its headers would be another request.
    const CURLcode ready = headers.isComplete() ? handle.setUpResult() : CURLE_OUT_OF_MEMORY;
    if (ready != CURLE_OK)
        return failure(RestClient::ExchangeFailed, QString::fromUtf8(curl_easy_strerror(ready)));
    const CURLcode result = curl_easy_perform(handle.get());
    if (result != CURLE_OK)
        handle.forgetShared();
    ExchangeOutcome done = outcome(handle, result, answer);
    done.date = answer.date();
    return done;
}
