#include "till/explain/messagesource.h"

#include "host/storage/storageerror.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace till::explain {

MessageSource::~MessageSource() = default;

namespace {

class LiveQueue : public MessageSource
{
public:
    explicit LiveQueue(const QueueSite &site)
    {
        try {
            m_look = std::make_unique<QueueLook>(site);
            m_problem = m_look->unreached();
        } catch (const StorageError &error) {
            m_problem = error.tr();
        }
    }

    [[nodiscard]] QList<QueueMessage> ofDocument(const QString &correlationId) override
    {
        return m_look ? m_look->ofDocument(correlationId) : QList<QueueMessage>();
    }
    [[nodiscard]] tr::Tr problem() const override { return m_problem; }

private:
    std::unique_ptr<QueueLook> m_look;
    tr::Tr m_problem;
};

QDateTime timeOf(const QJsonObject &object, const QString &name)
{
    return QDateTime::fromString(object.value(name).toString(), Qt::ISODateWithMs);
}

// As far as a story needs it.
QueueMessage messageOf(const QJsonObject &object)
{
    QueueMessage message;
    message.id = object.value(u"id").toString();
    message.state = stateNamed(object.value(u"state").toString());
    message.attempts = object.value(u"attempts").toInt();
    message.enqueued = timeOf(object, u"enqueued"_s);
    message.nextAttempt = timeOf(object, u"nextAttempt"_s);
    message.lastAttempt = timeOf(object, u"lastAttempt"_s);
    message.settled = timeOf(object, u"settled"_s);
    message.lastError = object.value(u"lastError").toString();
    message.lastCode = object.value(u"code").toInt();
    message.movedTo = object.value(u"movedTo").toString();
    message.correlationId = object.value(u"correlationId").toString();
    message.answer = object.value(u"answer").toString().toUtf8();
    return message;
}

class ArchivedQueue : public MessageSource
{
public:
    explicit ArchivedQueue(const QString &fileName)
    {
        QFile file(fileName);
        if (!file.open(QIODevice::ReadOnly)) {
            m_problem = {u"explainArchiveWithoutQueue"_s, u"В архиве нет сообщений очереди"_s};
            return;
        }
        const QJsonArray objects = QJsonDocument::fromJson(file.readAll()).array();
        for (const auto &object : objects)
            m_messages.append(messageOf(object.toObject()));
    }

    [[nodiscard]] QList<QueueMessage> ofDocument(const QString &correlationId) override
    {
        QList<QueueMessage> found = m_messages;
        found.removeIf([&correlationId](const QueueMessage &message) {
            return message.correlationId != correlationId;
        });
        return found;
    }
    [[nodiscard]] tr::Tr problem() const override { return m_problem; }

private:
    QList<QueueMessage> m_messages;
    tr::Tr m_problem;
};

} // namespace

std::unique_ptr<MessageSource> messagesOfQueue(const QueueSite &site)
{
    return std::make_unique<LiveQueue>(site);
}

std::unique_ptr<MessageSource> messagesOfArchive(const QString &fileName)
{
    return std::make_unique<ArchivedQueue>(fileName);
}

} // namespace till::explain
