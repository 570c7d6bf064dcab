#pragma once

#include "emulator/http/message.h"

#include <map>

namespace emulator {

/// The request's headers that a recording may hold: none whose name speaks of credentials, such as
/// "Authorization", "Cookie" or "X-Api-Key". Of several with one name the values are joined.
std::map<QByteArray, QByteArray> headersWithoutCredentials(const HttpRequest &request);

/// What follows the scheme in an "Authorization"; of "Basic QUJD" it is "QUJD".
QByteArray credentialsOf(const QByteArray &authorization);

/// The text with the credentials crossed out, where a service has repeated them.
QByteArray withoutCredentials(QByteArray text, const QByteArray &credentials);

} // namespace emulator
