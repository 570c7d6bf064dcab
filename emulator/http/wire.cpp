#include "emulator/http/wire.h"

#include "emulator/http/status.h"

#include <QDateTime>
#include <QLocale>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace http = boost::beast::http;

namespace {

QString toQString(boost::beast::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QByteArray bytes(boost::beast::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// Tills compare their clocks with it.
std::string dateNow()
{
    return QLocale::c()
        .toString(QDateTime::currentDateTimeUtc(), u"ddd, dd MMM yyyy HH:mm:ss 'GMT'"_s)
        .toStdString();
}

std::string headOf(const HttpReply &reply)
{
    const auto reason
        = http::obsolete_reason(http::int_to_status(static_cast<unsigned>(reply.status)));
    std::string head = "HTTP/1.1 " + std::to_string(reply.status) + ' '
        + std::string(reason.data(), reason.size()) + "\r\nDate: " + dateNow()
        + "\r\nConnection: close\r\n";
    if (!reply.contentType.isEmpty())
        head += "Content-Type: " + reply.contentType.toStdString() + "\r\n";
    // What is told as it happens ends with the connection.
    if (!reply.events)
        head += "Content-Length: " + std::to_string(reply.body.size()) + "\r\n";
    for (const auto &[name, value] : reply.headers)
        head += name.toStdString() + ": " + value.toStdString() + "\r\n";
    return head + "\r\n";
}

} // namespace

HttpRequest requestFrom(const http::request<http::string_body> &message, bool fromLoopback)
{
    HttpRequest request;
    request.method = toQString(message.method_string());
    request.target = toQString(message.target());
    request.host = toQString(message[http::field::host]);
    request.origin = toQString(message[http::field::origin]);
    request.authorization = bytes(message[http::field::authorization]);
    request.fromPage = !request.origin.isEmpty() || !message["Sec-Fetch-Site"].empty();
    request.token = toQString(message["X-Korvel-Token"]).toUtf8();
    request.body = QByteArray::fromStdString(message.body());
    request.fromLoopback = fromLoopback;
    for (const auto &field : message)
        request.headers.emplace_back(bytes(field.name_string()), bytes(field.value()));
    return request;
}

std::string bytesOf(const HttpReply &reply)
{
    const qsizetype length
        = reply.delivery == Delivery::Half ? reply.body.size() / 2 : reply.body.size();
    return headOf(reply) + reply.body.left(length).toStdString();
}

HttpReply replyToUnreadable(const boost::beast::error_code &error)
{
    if (error == http::error::body_limit)
        return textReply(httpstatus::tooLarge, u"the request is larger than 16 MiB"_s);
    if (error == http::error::header_limit)
        return textReply(httpstatus::headTooLarge, u"the request's head is too large"_s);
    return textReply(httpstatus::badRequest,
        u"the request is not HTTP/1.1: %1"_s.arg(QString::fromStdString(error.message())));
}

} // namespace emulator
