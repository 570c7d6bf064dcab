#include "host/net/authorities.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

namespace {

// Only then may its objects be given to libcurl.
bool isLibraryOfCurl()
{
    const QByteArray own = QByteArray("OpenSSL/") + OpenSSL_version(OPENSSL_VERSION_STRING);
    return own == curl_version_info(CURLVERSION_NOW)->ssl_version;
}

bool isRead(X509_STORE *store, const QByteArray &file, const QByteArray &folder)
{
    return store && (file.isEmpty() || X509_STORE_load_file(store, file.constData()) == 1)
        && (folder.isEmpty() || X509_STORE_load_path(store, folder.constData()) == 1)
        // As libcurl does it: a certificate among the trusted ones is enough, without the one that
        // vouches for it.
        && X509_STORE_set_flags(store, X509_V_FLAG_PARTIAL_CHAIN) == 1;
}

} // namespace

Authorities::Authorities(const ExchangeSettings &settings)
    : m_file(settings.caFile)
{
    if (!m_file.isEmpty())
        return;
    const curl_version_info_data *const built = curl_version_info(CURLVERSION_NOW);
    m_file = built->cainfo;
    m_folder = built->capath;
}

Authorities::~Authorities() = default;

void Authorities::Release::operator()(X509_STORE *store) const
{
    X509_STORE_free(store);
}

void Authorities::read()
{
    if (!isLibraryOfCurl() || (m_file.isEmpty() && m_folder.isEmpty()))
        return;
    std::unique_ptr<X509_STORE, Release> store(X509_STORE_new());
    if (isRead(store.get(), m_file, m_folder))
        m_store = std::move(store);
    // What could not be read is told by libcurl, which looks at the thread's errors for its own.
    ERR_clear_error();
}

void Authorities::useFor(CURL *handle)
{
    std::call_once(m_isRead, [this] { read(); });
    if (!m_store)
        return;
    curl_easy_setopt(handle, CURLOPT_CAINFO, nullptr);
    curl_easy_setopt(handle, CURLOPT_CAPATH, nullptr);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_DATA, m_store.get());
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_FUNCTION, &Authorities::putInto);
}

CURLcode Authorities::putInto(CURL *, void *context, void *store)
{
    SSL_CTX_set1_cert_store(static_cast<SSL_CTX *>(context), static_cast<X509_STORE *>(store));
    return CURLE_OK;
}
