#pragma once

#include "host/net/exchangesettings.h"

#include <QList>

/// A file as it was when it was looked at.
struct FileMark
{
    QByteArray fileName;
    quint64 device = 0; ///< 0 with everything below where there is no such file
    quint64 number = 0;
    qint64 size = 0;
    qint64 changedSeconds = 0;
    qint64 changedNanoseconds = 0;

    bool operator==(const FileMark &) const = default;
};

/// On what a TLS session was agreed: which authorities vouched for the server, as whom the till
/// showed itself, and by what way. A session holds as long as the same would be agreed again.
struct TrustBasis
{
    QList<FileMark> files;
    QByteArray proxy;

    bool operator==(const TrustBasis &) const = default;
};

/// What it is now. Files that are replaced or written to make it another.
[[nodiscard]] TrustBasis trustBasis(const ExchangeSettings &settings);
