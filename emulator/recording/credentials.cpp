#include "emulator/recording/credentials.h"

#include <algorithm>
#include <array>

namespace emulator {

namespace {

bool speaksOfCredentials(const QByteArray &name)
{
    constexpr std::array words = {"auth", "cookie", "token", "secret", "password", "key"};
    const QByteArray lower = name.toLower();
    return std::any_of(
        words.begin(), words.end(), [&lower](const char *word) { return lower.contains(word); });
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
