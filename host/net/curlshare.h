#pragma once

#include <QtGlobal>

#include <curl/curl.h>

#include <array>
#include <memory>
#include <mutex>

/// What libcurl remembers from one exchange to the next: the addresses of names, for the minute
/// that libcurl takes them for current, and TLS sessions. Never connections.
///
/// May be used by exchanges of several threads at once; it must outlive their handles.
class CurlShare
{
public:
    CurlShare();
    Q_DISABLE_COPY_MOVE(CurlShare)
    ~CurlShare() = default;

    /// Null where libcurl has no memory for it; an exchange then shares nothing.
    [[nodiscard]] CURLSH *get() const { return m_handle.get(); }

private:
    struct Cleanup
    {
        void operator()(CURLSH *handle) const { curl_share_cleanup(handle); }
    };

    static void lock(CURL *, curl_lock_data part, curl_lock_access, void *share);
    static void unlock(CURL *, curl_lock_data part, void *share);

    std::array<std::mutex, CURL_LOCK_DATA_LAST> m_mutexes; ///< one for each part
    std::unique_ptr<CURLSH, Cleanup> m_handle;
};
