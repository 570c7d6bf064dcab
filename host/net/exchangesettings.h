#pragma once

#include <QByteArray>

#include <chrono>

/// When exchanges that keep failing are no longer tried.
struct BreakerRule
{
    int failures = 0; ///< in a row; 0 or less: never
    std::chrono::seconds period{0}; ///< how long; 0 or less: never

    [[nodiscard]] bool isOn() const { return failures > 0 && period.count() > 0; }
};

/// The settings "RestClient:…", file names in the encoding of the file system.
struct ExchangeSettings
{
    QByteArray caFile; ///< PEM; takes the place of the system's authorities. Empty: those
    QByteArray clientCert; ///< PEM; empty: none
    QByteArray clientKey; ///< PEM; empty: in the certificate's file
    QByteArray proxy; ///< an address; empty: none, whatever the environment says
    qint64 maxAnswerBytes = 0; ///< of the body
    BreakerRule breaker;
};

/// What the configuration says now; file names are relative to the file that they stand in.
[[nodiscard]] ExchangeSettings configuredExchangeSettings();
