#pragma once

#include "host/net/exchangesettings.h"

#include <curl/curl.h>

#include <memory>
#include <mutex>

using X509_STORE = struct x509_store_st;

/// The certificates that vouch for servers: those of "RestClient:caFile", or the system's.
///
/// libcurl reads them for each exchange, and the system's take it longer than everything else that
/// a till does for one. Here they are read once, when first needed. May be used from any thread.
class Authorities
{
public:
    explicit Authorities(const ExchangeSettings &settings);
    ~Authorities();
    Q_DISABLE_COPY_MOVE(Authorities)

    /// Lets an exchange take them from here. What cannot be read is left to libcurl, which then
    /// says what is wrong; so is everything where libcurl has another TLS library than this
    /// program.
    void useFor(CURL *handle);

private:
    struct Release
    {
        void operator()(X509_STORE *store) const;
    };

    void read();
    static CURLcode putInto(CURL *handle, void *context, void *store);

    QByteArray m_file;
    QByteArray m_folder; ///< of files named by what they hold; empty: none
    std::once_flag m_isRead;
    std::unique_ptr<X509_STORE, Release> m_store; ///< null: not to be had
};
