#pragma once

#include "host/export.h"
#include "host/net/certificate.h"

#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>

/// What a look at a server showed. A record of values.
struct ServerLook
{
    int error = 0; ///< as `RestClient::errorCode`; 0: an exchange would find a connection
    QString detail; ///< of the error, in English
    QString address; ///< that was connected to, the proxy's where there is one; empty: none
    std::chrono::milliseconds name{0}; ///< from the beginning until the name was known
    std::chrono::milliseconds connection{0}; ///< from the beginning until it stood; 0: never
    std::chrono::milliseconds tls{
        0}; ///< from the beginning until it was agreed; 0: never or no TLS
    QList<Certificate> certificates; ///< the server's own first; empty without TLS or trust
};

/// Connects to the server of an address as an exchange would do it, by the settings
/// "RestClient:…", and sends nothing. Blocks until the connection stands or the limit has passed.
/// To be used from the host's thread only.
/// @param limit positive.
[[nodiscard]] POSHOST_EXPORT ServerLook lookAtServer(const QUrl &url, std::chrono::seconds limit);
