#include "tests/faults/httptext.h"

#include <QString>

namespace faults {

namespace {

const QByteArray headEnd = "\r\n\r\n";
const QByteArray lengthName = "content-length:";

qsizetype headLength(const QByteArray &message)
{
    const qsizetype end = message.indexOf(headEnd);
    return end < 0 ? -1 : end + headEnd.size();
}

qsizetype announcedLength(const QByteArray &head)
{
    const QByteArray names = head.toLower();
    const qsizetype at = names.indexOf(lengthName);
    if (at < 0)
        return 0;
    const qsizetype value = at + lengthName.size();
    return names.mid(value, names.indexOf('\r', value) - value).trimmed().toLongLong();
}

} // namespace

bool isWhole(const QByteArray &message)
{
    const qsizetype length = headLength(message);
    return length >= 0 && message.size() >= length + announcedLength(message.left(length));
}

QByteArray bodyOf(const QByteArray &message)
{
    return message.mid(headLength(message));
}

QByteArray headOf(const QByteArray &message)
{
    return message.left(headLength(message));
}

QByteArray httpAnswer(
    const QByteArray &status, const QByteArray &body, const QByteArray &furtherHeaders)
{
    return "HTTP/1.1 " + status + "\r\nContent-Type: text/xml; charset=utf-8\r\nContent-Length: "
        + QByteArray::number(body.size()) + "\r\nConnection: close\r\n" + furtherHeaders + "\r\n"
        + body;
}

} // namespace faults
