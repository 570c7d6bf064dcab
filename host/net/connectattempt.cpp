#include "host/net/connectattempt.h"

#include "host/net/curlhandle.h"

namespace {

constexpr std::chrono::milliseconds limit{3000};
constexpr int stopCheckMilliseconds = 100;

struct MultiCleanup
{
    void operator()(CURLM *multi) const { curl_multi_cleanup(multi); }
};
using MultiHandle = std::unique_ptr<CURLM, MultiCleanup>;

// In slices: an easy handle would not look at the request to stop before its limit.
bool run(CURLM *multi, const std::stop_token &stop)
{
    int running = 1;
    while (running > 0 && !stop.stop_requested()) {
        if (curl_multi_perform(multi, &running) != CURLM_OK)
            return false;
        if (running > 0)
            curl_multi_poll(multi, nullptr, 0, stopCheckMilliseconds, nullptr);
    }
    int left = 0;
    const CURLMsg *message = curl_multi_info_read(multi, &left);
    return message && message->data.result == CURLE_OK;
}

} // namespace

bool canConnect(const QUrl &url, const ExchangeSettings &settings, const std::stop_token &stop)
{
    CurlHandle handle(url, settings, limit);
    handle.set(CURLOPT_CONNECT_ONLY, 1L);
    const MultiHandle multi(curl_multi_init());
    if (handle.setUpResult() != CURLE_OK || !multi)
        return false;
    curl_multi_add_handle(multi.get(), handle.get());
    const bool connected = run(multi.get(), stop);
    curl_multi_remove_handle(multi.get(), handle.get());
    if (!connected)
        handle.forgetShared();
    return connected;
}
