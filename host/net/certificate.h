#pragma once

#include "host/export.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

/// What people want to know of an X.509 certificate. A record of values.
struct Certificate
{
    QString subject; ///< its common name; where it has none, the whole name
    QDateTime begins; ///< UTC
    QDateTime ends; ///< UTC
};

/// Certificates and keys as they stand in PEM files: plain functions of the bytes.
namespace certificates {

/// The certificates, in the order of the text; what cannot be read ends the list.
[[nodiscard]] POSHOST_EXPORT QList<Certificate> in(const QByteArray &pem);

/// How the private key of one text and the first certificate of another get along.
enum class KeyMatch
{
    Fits,
    Differs, ///< it belongs to another certificate
    NoKey, ///< none that can be read without a password
};
/// @param key         PEM, may be the same text.
/// @param certificate PEM with at least one certificate.
[[nodiscard]] POSHOST_EXPORT KeyMatch match(const QByteArray &key, const QByteArray &certificate);

} // namespace certificates
