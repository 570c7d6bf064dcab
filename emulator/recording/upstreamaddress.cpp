#include "emulator/recording/upstreamaddress.h"

#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

QByteArray authorizationOf(const QUrl &url)
{
    if (url.userInfo().isEmpty())
        return {};
    const QString user = url.userName(QUrl::FullyDecoded);
    return "Basic " + (user + u':' + url.password(QUrl::FullyDecoded)).toUtf8().toBase64();
}

QByteArray joined(const QByteArray &query, const QByteArray &other)
{
    const QByteArray between = query.isEmpty() || other.isEmpty() ? "" : "&";
    return query + between + other;
}

} // namespace

UpstreamAddress UpstreamAddress::parse(const QString &text)
{
    const QUrl url(text, QUrl::StrictMode);
    const bool isHttp = url.scheme() == u"http" || url.scheme() == u"https";
    if (!url.isValid() || !isHttp || url.host().isEmpty() || url.hasFragment())
        throw UpstreamError(
            u"--upstream: expected a URL such as https://service.example/loyalty"_s);
    UpstreamAddress address;
    address.m_base = url.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveQuery);
    if (url.path().isEmpty())
        address.m_base += '/';
    address.m_query = url.query(QUrl::FullyEncoded).toUtf8();
    address.m_authorization = authorizationOf(url);
    return address;
}

QByteArray UpstreamAddress::urlFor(const QString &target) const
{
    const QByteArray path = target.section(u'?', 0, 0).toUtf8();
    const QByteArray query = joined(m_query, target.section(u'?', 1).toUtf8());
    QByteArray url = m_base;
    if (path != "/") {
        if (url.endsWith('/'))
            url.chop(1);
        url += path;
    }
    return query.isEmpty() ? url : url + '?' + query;
}

} // namespace emulator
