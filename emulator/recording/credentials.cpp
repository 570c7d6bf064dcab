#include "emulator/recording/credentials.h"

namespace emulator {

namespace {

bool speaksOfCredentials(const QByteArray &name)
{
    const QByteArray lower = name.toLower();
    for (const char *word : {"auth", "cookie", "token", "secret", "password", "key"}) {
        if (lower.contains(word))
            return true;
    }
    return false;
}

} // namespace

std::map<QByteArray, QByteArray> headersWithoutCredentials(const HttpRequest &request)
{
    std::map<QByteArray, QByteArray> kept;
    for (const auto &[name, value] : request.headers) {
        if (speaksOfCredentials(name))
            continue;
        const auto [place, isNew] = kept.emplace(name, value);
        if (!isNew)
            place->second += ", " + value;
    }
    return kept;
}

QByteArray credentialsOf(const QByteArray &authorization)
{
    return authorization.mid(authorization.indexOf(' ') + 1).trimmed();
}

QByteArray withoutCredentials(QByteArray text, const QByteArray &credentials)
{
    return credentials.isEmpty() ? text : text.replace(credentials, "(credentials)");
}

} // namespace emulator
