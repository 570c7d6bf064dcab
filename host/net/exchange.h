#pragma once

#include "host/net/exchangesettings.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QUrl>

#include <chrono>

/// What one POST needs.
struct ExchangeRequest
{
    QUrl url; ///< http or https, with a host
    QByteArray body;
    QHash<QString, QString> headers;
    std::chrono::seconds limit{0}; ///< for the whole exchange, positive
};

/// What became of it.
struct ExchangeOutcome
{
    int error = 0; ///< as `RestClient::errorCode`
    QByteArray body; ///< of an answer, whatever its status; of one too large what had come of it
    QString detail; ///< in English, for the log
    QDateTime date; ///< UTC, of the answer's head; invalid where it has none
};

/// Does one POST on a connection of its own and blocks until it is done. The body is sent at most
/// once.
[[nodiscard]] ExchangeOutcome exchange(
    const ExchangeRequest &request, const ExchangeSettings &settings);
