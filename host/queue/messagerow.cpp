#include "host/queue/messagerow.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace messagerow {

const QStringList &columns()
{
    static const QStringList all{u"number"_s, u"id"_s, u"queue"_s, u"remark"_s, u"url"_s,
        u"headers"_s, u"body"_s, u"correlation_id"_s, u"enqueued"_s, u"attempts"_s,
        u"next_attempt"_s, u"last_error"_s, u"state"_s, u"answer"_s, u"lane"_s, u"last_attempt"_s,
        u"lease_owner"_s, u"lease_until"_s, u"deliverers_lost"_s, u"last_code"_s,
        u"answered_otherwise_since"_s, u"settled"_s, u"moved_to"_s};
    return all;
}

const QStringList &shortColumns()
{
    static const QStringList some = [] {
        QStringList names = columns();
        names.removeOne(u"headers"_s);
        names.removeOne(u"body"_s);
        return names;
    }();
    return some;
}

QueueMessage shortened(QueueMessage message)
{
    message.headers.clear();
    message.body.clear();
    return message;
}

QVariantList values(const QueueMessage &message)
{
    return {message.id, present(message.queue), present(message.remark), present(message.url),
        written(message.headers), present(message.body), present(message.correlationId),
        written(message.enqueued), message.attempts, written(message.nextAttempt),
        present(message.lastError), stateName(message.state), present(message.answer),
        present(message.lane), written(message.lastAttempt), present(message.leaseOwner),
        written(message.leaseUntil), message.deliverersLost, message.lastCode,
        written(message.answeredOtherwiseSince), written(message.settled),
        present(message.movedTo)};
}

QueueMessage read(const std::function<QVariant(const QString &)> &value)
{
    QueueMessage message;
    message.number = value(u"number"_s).toLongLong();
    message.id = value(u"id"_s).toString();
    message.queue = value(u"queue"_s).toString();
    message.remark = value(u"remark"_s).toString();
    message.url = value(u"url"_s).toString();
    message.headers = readHeaders(value(u"headers"_s));
    message.body = value(u"body"_s).toByteArray();
    message.correlationId = value(u"correlation_id"_s).toString();
    message.lane = value(u"lane"_s).toString();
    message.enqueued = readTime(value(u"enqueued"_s));
    message.state = stateNamed(value(u"state"_s).toString());
    message.attempts = value(u"attempts"_s).toInt();
    message.lastAttempt = readTime(value(u"last_attempt"_s));
    message.nextAttempt = readTime(value(u"next_attempt"_s));
    message.leaseOwner = value(u"lease_owner"_s).toString();
    message.leaseUntil = readTime(value(u"lease_until"_s));
    message.deliverersLost = value(u"deliverers_lost"_s).toInt();
    message.lastCode = value(u"last_code"_s).toInt();
    message.lastError = value(u"last_error"_s).toString();
    message.answer = value(u"answer"_s).toByteArray();
    message.answeredOtherwiseSince = readTime(value(u"answered_otherwise_since"_s));
    message.settled = readTime(value(u"settled"_s));
    message.movedTo = value(u"moved_to"_s).toString();
    return message;
}

QString written(const QDateTime &time)
{
    return time.isValid() ? time.toUTC().toString(Qt::ISODateWithMs) : u""_s;
}

QDateTime readTime(const QVariant &text)
{
    return QDateTime::fromString(text.toString(), Qt::ISODateWithMs);
}

QString written(const QHash<QString, QString> &headers)
{
    QJsonObject members;
    for (auto header = headers.cbegin(); header != headers.cend(); ++header)
        members.insert(header.key(), header.value());
    return QString::fromUtf8(QJsonDocument(members).toJson(QJsonDocument::Compact));
}

QHash<QString, QString> readHeaders(const QVariant &text)
{
    QHash<QString, QString> headers;
    const QJsonObject members = QJsonDocument::fromJson(text.toByteArray()).object();
    for (auto member = members.begin(); member != members.end(); ++member)
        headers.insert(member.key(), member.value().toString());
    return headers;
}

QString present(const QString &text)
{
    return text.isNull() ? u""_s : text;
}

QByteArray present(const QByteArray &bytes)
{
    return bytes.isNull() ? QByteArray("") : bytes;
}

} // namespace messagerow
