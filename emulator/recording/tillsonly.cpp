#include "emulator/recording/tillsonly.h"

#include "emulator/http/status.h"

#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

std::optional<HttpReply> replyToOthers(const HttpRequest &request)
{
    const QString path = QUrl::fromEncoded(request.target.toUtf8()).path();
    if (path.startsWith(u"/api/") || path == u"/console")
        return textReply(httpstatus::notFound,
            u"record and replay have no API and no page; those belong to a service of its own"_s);
    if (request.method != u"POST")
        return textReply(httpstatus::wrongMethod, u"only a till's POST is taken here"_s);
    if (!request.target.startsWith(u'/'))
        return textReply(httpstatus::badRequest, u"the request must name a path"_s);
    if (request.fromPage)
        return textReply(httpstatus::forbidden, u"this is for tills, not for a browser's page"_s);
    return {};
}

} // namespace emulator
