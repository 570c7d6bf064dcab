#pragma once

#include "host/export.h"
#include "host/net/authorities.h"
#include "host/net/curlshare.h"
#include "host/net/trustbasis.h"

#include <chrono>
#include <memory>
#include <mutex>

/// What exchanges share.
struct SharedKnowledge
{
    std::shared_ptr<Authorities> authorities;
    CurlShare namesAndSessions;
};

/// What the exchanges of this process hand on to those after them: looked-up names, TLS sessions
/// and the authorities that were read, so that a till on a slow line asks no name server twice and
/// a server's certificates are not checked for each cheque. Connections are never handed on.
///
/// A session skips the check of the certificates on which it was agreed. So all is forgotten when
/// one of their files or settings changes, and after `longest` in any case, lest a certificate that
/// has run out counts for as long as the till runs. After an exchange that failed names and
/// sessions are forgotten: the next one finds a server that has moved. May be used from any thread.
class POSHOST_EXPORT ExchangeMemory
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// How long it is handed on.
    static constexpr std::chrono::minutes longest{60};

    /// The one of the process.
    static ExchangeMemory &instance();

    /// What an exchange with those settings may use; never null.
    [[nodiscard]] std::shared_ptr<SharedKnowledge> recall(
        const ExchangeSettings &settings, TimePoint now);
    /// Keeps the names and sessions of an exchange from those to come; nothing happens where they
    /// have been replaced.
    void forget(const std::shared_ptr<SharedKnowledge> &knowledge);

private:
    std::mutex m_mutex;
    TrustBasis m_basis;
    TimePoint m_begun;
    std::shared_ptr<Authorities> m_authorities; ///< null: never asked for
    std::shared_ptr<SharedKnowledge> m_knowledge; ///< null: to be begun
};
