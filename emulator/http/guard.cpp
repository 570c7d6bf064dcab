#include "emulator/http/guard.h"

#include "emulator/http/status.h"

#include <QStringList>

#include <openssl/crypto.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

/// "name:80", "[::1]:80" and "name" without the port and the brackets.
QString hostName(const QString &host)
{
    if (host.startsWith(u'['))
        return host.mid(1, host.indexOf(u']') - 1);
    return host.left(host.indexOf(u':') < 0 ? host.size() : host.indexOf(u':')).toLower();
}

} // namespace

Authorisation::Authorisation(const QString &user, const QString &password)
    : m_expected("Basic " + (user + u':' + password).toUtf8().toBase64())
{ }

bool Authorisation::admits(const HttpRequest &request) const
{
    if (!isRequired())
        return true;
    const QByteArray &given = request.authorization;
    return given.size() == m_expected.size()
        && CRYPTO_memcmp(
               given.constData(), m_expected.constData(), static_cast<std::size_t>(given.size()))
        == 0;
}

HttpReply unauthorisedReply()
{
    HttpReply reply = textReply(httpstatus::unauthorised, u"wrong user or password"_s);
    reply.headers.emplace_back("WWW-Authenticate", "Basic realm=\"korvel-service\"");
    return reply;
}

bool isOwnHost(const QString &host, const QString &listeningHost)
{
    const QStringList own = {u"localhost"_s, u"127.0.0.1"_s, u"::1"_s, listeningHost.toLower()};
    return own.contains(hostName(host));
}

bool isOwnOrigin(const HttpRequest &request)
{
    return request.origin.isEmpty() || request.origin == u"http://"_s + request.host
        || request.origin == u"https://"_s + request.host;
}

} // namespace emulator
