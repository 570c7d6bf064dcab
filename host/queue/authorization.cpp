#include "host/queue/authorization.h"

#include <QUrl>

using namespace Qt::Literals::StringLiterals;

namespace authorization {

namespace {

const QString header = u"Authorization"_s;

QString spelling(const QHash<QString, QString> &headers)
{
    for (auto name = headers.keyBegin(); name != headers.keyEnd(); ++name)
        if (name->compare(header, Qt::CaseInsensitive) == 0)
            return *name;
    return {};
}

} // namespace

bool replace(QHash<QString, QString> &headers, const QString &value)
{
    const QString name = spelling(headers);
    if (name.isEmpty())
        return false;
    headers[name] = value;
    return true;
}

void takeOff(QueueMessage &message)
{
    replace(message.headers, u""_s);
    QUrl url(message.url);
    if (url.userInfo().isEmpty())
        return;
    url.setUserInfo({});
    message.url = url.toString(QUrl::FullyEncoded);
}

void putOn(QueueMessage &message, const QString &value)
{
    if (value.isEmpty())
        message.headers.remove(spelling(message.headers));
    else
        replace(message.headers, value);
}

} // namespace authorization
