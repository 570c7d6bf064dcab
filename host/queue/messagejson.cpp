#include "host/queue/messagejson.h"

#include "host/queue/messagerow.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::Literals::StringLiterals;

namespace messagejson {

namespace {

const QString checksumMember = u"checksum"_s;
const QString messageMember = u"message"_s;

// Bytes need not be text.
const QStringList &binaryColumns()
{
    static const QStringList columns{u"body"_s, u"answer"_s};
    return columns;
}

QString checksum(const QJsonObject &members)
{
    const QByteArray text = QJsonDocument(members).toJson(QJsonDocument::Compact);
    return QString::fromLatin1(QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex());
}

QJsonObject membersOf(const QueueMessage &message)
{
    const QStringList columns = messagerow::columns().mid(1);
    const QVariantList values = messagerow::values(message);
    QJsonObject members;
    for (qsizetype index = 0; index < columns.size(); ++index) {
        const QString &column = columns.at(index);
        members[column] = binaryColumns().contains(column)
            ? QJsonValue(QString::fromLatin1(values.at(index).toByteArray().toBase64()))
            : QJsonValue::fromVariant(values.at(index));
    }
    return members;
}

} // namespace

QByteArray line(const QueueMessage &message)
{
    const QJsonObject members = membersOf(message);
    const QJsonObject line{{checksumMember, checksum(members)}, {messageMember, members}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<QueueMessage> read(const QByteArray &line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const QJsonObject members = object[messageMember].toObject();
    if (members.isEmpty() || checksum(members) != object[checksumMember].toString())
        return {};
    return messagerow::read([&members](const QString &column) {
        const QVariant value = members[column].toVariant();
        return binaryColumns().contains(column)
            ? QVariant(QByteArray::fromBase64(value.toString().toLatin1()))
            : value;
    });
}

} // namespace messagejson
