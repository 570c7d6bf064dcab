#pragma once

#include "common/host/framework.h"
#include "common/host/services.h"

#include <QList>
#include <QSharedPointer>

#include <utility>

/// What the client gave its HTTP client for one exchange.
struct Exchange
{
    QUrl url;
    QByteArray body;
    QHash<QString, QString> headers;
    int timeout = 0;
    const Log4Qt::Logger *logger = nullptr;
};

/// The service as seen through the doubles: what it was asked and what it will answer.
struct ScriptedService
{
    QList<Exchange> exchanges;
    QByteArray answer;
    int errorCode = RestClient::None;
    tr::Tr errorMessage;
};

/// An HTTP client that asks the scripted service.
class RestClientDouble : public RestClient
{
public:
    explicit RestClientDouble(const QSharedPointer<ScriptedService> &service)
        : m_service(service)
    { }
    void setTimeout(int seconds) override { m_exchange.timeout = seconds; }
    void setLogger(const Log4Qt::Logger *logger) override { m_exchange.logger = logger; }
    void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers) override
    {
        m_exchange.url = url;
        m_exchange.body = body;
        m_exchange.headers = headers;
        m_service->exchanges.append(m_exchange);
    }
    [[nodiscard]] int errorCode() const override { return m_service->errorCode; }
    [[nodiscard]] tr::Tr errorMessage() const override { return m_service->errorMessage; }
    [[nodiscard]] QByteArray responseBody() const override { return m_service->answer; }

private:
    QSharedPointer<ScriptedService> m_service;
    Exchange m_exchange;
};

/// A queue that keeps its messages.
class QueueDouble : public DBQueueBroker
{
public:
    struct Entry
    {
        QString queue;
        QMap<QString, QVariant> message;
        QString remark;
    };
    void enqueue(const QString &queue, const QMap<QString, QVariant> &message,
        const QString &remark) override
    {
        entries.append({queue, message, remark});
    }
    QList<Entry> entries;
};

/// A journal that keeps its events, or fails if told so.
class NotifierDouble : public ActivityNotifier
{
public:
    void notify(const Event &event) override
    {
        if (fails)
            throw std::runtime_error("the journal is full");
        events.append(event);
    }
    QList<Event> events;
    bool fails = false;
};

/// A clock that stands still.
class ClockDouble : public CurrentTime
{
public:
    explicit ClockDouble(QDateTime time)
        : m_time(std::move(time))
    { }
    [[nodiscard]] QDateTime currentDateTime() const override { return m_time; }

private:
    QDateTime m_time;
};

/// What the client gave a formatter for one mask.
struct Expansion
{
    QString mask;
    QList<QObject *> objects;
    int flags = 0;
    QMap<QString, QString> resolved;
};

/// Expands a mask into the text that was given for it, others into "<mask>"; an empty one stays
/// empty.
class FormatterDouble : public SimpleFormatter
{
public:
    struct Script
    {
        QMap<QString, QString> texts;
        QList<Expansion> expansions;
        int made = 0;
    };
    explicit FormatterDouble(const QSharedPointer<Script> &script)
        : m_script(script)
    {
        ++m_script->made;
    }
    [[nodiscard]] QString format(const QString &mask, const QList<QObject *> &objects, int flags,
        QMap<QString, QString> &resolved) const override
    {
        m_script->expansions.append({mask, objects, flags, resolved});
        const QString marked = QStringLiteral("<%1>").arg(mask);
        return mask.isEmpty() ? mask : m_script->texts.value(mask, marked);
    }

private:
    QSharedPointer<Script> m_script;
};

/// Offers its own objects for the current document, and none for any other.
class DocumentLogicDouble : public DocumentLogic
{
public:
    explicit DocumentLogicDouble(const QList<QObject *> &current)
        : m_current(current)
    { }
    [[nodiscard]] QList<QObject *> getObjects(
        const QSharedPointer<AbstractDocument> &document) const override
    {
        return document ? QList<QObject *>() : m_current;
    }

private:
    QList<QObject *> m_current;
};
