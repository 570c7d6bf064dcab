#include "host/net/curlshare.h"

CurlShare::CurlShare()
    : m_handle(curl_share_init())
{
    curl_share_setopt(m_handle.get(), CURLSHOPT_LOCKFUNC, &CurlShare::lock);
    curl_share_setopt(m_handle.get(), CURLSHOPT_UNLOCKFUNC, &CurlShare::unlock);
    curl_share_setopt(m_handle.get(), CURLSHOPT_USERDATA, this);
    curl_share_setopt(m_handle.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_DNS);
    curl_share_setopt(m_handle.get(), CURLSHOPT_SHARE, CURL_LOCK_DATA_SSL_SESSION);
}

void CurlShare::lock(CURL *, curl_lock_data part, curl_lock_access, void *share)
{
    static_cast<CurlShare *>(share)->m_mutexes.at(part).lock();
}

void CurlShare::unlock(CURL *, curl_lock_data part, void *share)
{
    static_cast<CurlShare *>(share)->m_mutexes.at(part).unlock();
}
