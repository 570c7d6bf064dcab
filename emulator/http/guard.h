#pragma once

#include "emulator/http/message.h"

#include <optional>

namespace emulator {

/// Basic authorisation. Without a user everybody passes.
class Authorisation
{
public:
    Authorisation() = default;
    Authorisation(const QString &user, const QString &password);

    bool isRequired() const { return !m_expected.isEmpty(); }

    /// Compares in constant time.
    bool admits(const HttpRequest &request) const;

private:
    QByteArray m_expected; ///< the whole header value
};

/// The answer to a request without the right credentials.
HttpReply unauthorisedReply();

/// Whether the "Host" of the request, with or without a port, is a name of this machine's
/// loopback or `listeningHost`. A page of a foreign site that has its name point here is thereby
/// kept out of the API.
bool isOwnHost(const QString &host, const QString &listeningHost);

/// Whether the "Origin" is absent or the request's own host.
bool isOwnOrigin(const HttpRequest &request);

} // namespace emulator
