#include "emulator/soap/description.h"

#include "emulator/embedded.h"

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

/// The one address that the file names.
constexpr const char *addressInFile = "http://127.0.0.1:8080/";

HttpReply documentReply(const QByteArray &xml)
{
    HttpReply reply;
    reply.contentType = "text/xml; charset=utf-8";
    reply.body = xml;
    return reply;
}

QByteArray addressOf(const HttpRequest &request)
{
    const QString scheme = request.overTls ? u"https"_s : u"http"_s;
    const QString address = scheme + u"://"_s + request.host + u'/';
    return address.toHtmlEscaped().toUtf8();
}

} // namespace

std::optional<HttpReply> describeService(const HttpRequest &request)
{
    if (request.method != u"GET")
        return {};
    if (request.target == u"/loyalty.xsd")
        return documentReply(embedded::loyaltySchema());
    if (request.target.compare(u"/?wsdl"_s, Qt::CaseInsensitive) != 0)
        return {};
    QByteArray description = embedded::serviceDescription();
    if (!request.host.isEmpty())
        description.replace(addressInFile, addressOf(request));
    return documentReply(description);
}

} // namespace emulator
