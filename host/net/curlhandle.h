#pragma once

#include "host/net/exchangesettings.h"

#include <QByteArray>
#include <QUrl>

#include <curl/curl.h>

#include <array>
#include <chrono>
#include <memory>

struct SharedKnowledge;

/// One libcurl easy handle with what every exchange of the host has in common: a connection of its
/// own that is never used again, HTTP/1.1 over http or https, no redirects, nothing taken from the
/// environment, verified certificates, no signals. Names, TLS sessions and authorities come from
/// the exchanges before it and go to those after it: see `ExchangeMemory`.
///
/// To be used from one thread at a time. Options that fail are remembered:
/// `setUpResult`.
class CurlHandle
{
public:
    /// @param limit for everything from name look-up to the last byte.
    CurlHandle(const QUrl &url, const ExchangeSettings &settings, std::chrono::milliseconds limit);

    /// Sets libcurl up for the process; later calls do nothing. Constructing a handle does so too.
    static bool setUpLibrary();

    /// What is set must fit the option; texts are copied by libcurl, other pointers are not.
    template <typename T> void set(CURLoption option, T value)
    {
        // In brackets: the macro of that name would check the types of constant options only.
        note((curl_easy_setopt)(m_handle.get(), option, value));
    }
    /// The first failure while options were set; CURLE_OK when there was none.
    [[nodiscard]] CURLcode setUpResult() const { return m_setUpResult; }
    [[nodiscard]] long number(CURLINFO info) const;
    /// What libcurl says about a failure, in English; never empty for one.
    [[nodiscard]] QByteArray errorText(CURLcode result) const;
    [[nodiscard]] CURL *get() const { return m_handle.get(); }
    /// Hands nothing on to the exchanges after this one, whose end was a failure.
    void forgetShared();

private:
    struct Cleanup
    {
        void operator()(CURL *handle) const { curl_easy_cleanup(handle); }
    };

    void note(CURLcode result);
    void share(const QUrl &url, const ExchangeSettings &settings);
    void setConnection(const ExchangeSettings &settings);
    void setTls(const ExchangeSettings &settings);

    std::array<char, CURL_ERROR_SIZE> m_errorText{};
    std::shared_ptr<SharedKnowledge> m_shared; ///< outlives the handle
    std::unique_ptr<CURL, Cleanup> m_handle;
    CURLcode m_setUpResult = CURLE_OK;
};
