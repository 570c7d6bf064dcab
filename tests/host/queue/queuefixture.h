#pragma once

#include "host/net/restclient.h"
#include "host/queue/dbqueuebroker.h"
#include "tests/support/hostfixture.h"

#include <QList>
#include <QSqlDatabase>
#include <QVariant>

#include <functional>

/// What a scripted exchange brings, and what it was given.
struct Exchange
{
    Exchange() = default;
    explicit Exchange(int code, const QByteArray &answered = {})
        : errorCode(code)
        , answer(answered)
    { }

    int errorCode = RestClient::None;
    QByteArray answer;
    QUrl url;
    QByteArray body;
    QHash<QString, QString> headers;
};

/// A queue in a state folder of its own, with exchanges that the test scripts.
class QueueFixture : public HostFixture
{
public:
    QueueFixture();
    ~QueueFixture();
    Q_DISABLE_COPY_MOVE(QueueFixture)

    /// Enqueues a message with that body.
    void givenMessage(const QString &body, const QString &queue = QStringLiteral("loyalty"));
    /// The next exchanges; those after the last one are answered with 2xx and an empty body.
    void givenExchanges(const QList<Exchange> &exchanges) { m_scripted = exchanges; }
    /// Runs while a request is on its way.
    void givenDuringExchange(const std::function<void()> &action) { m_duringExchange = action; }
    DeliveryReport whenDelivered() { return queue()->deliver(); }

    /// Exchanges so far with what was sent.
    [[nodiscard]] QList<Exchange> exchanges() const { return m_done; }
    [[nodiscard]] QStringList sentBodies() const;
    [[nodiscard]] static DBQueueBroker *queue() { return Singleton<DBQueueBroker>::instance(); }
    [[nodiscard]] static QString databaseFile();
    /// Values of the first row that a statement gives, asked over a connection of its own, as
    /// another process would.
    /// @param values in the order of the statement's question marks.
    static QVariantList ask(const QString &statement, const QVariantList &values = {});
    /// Runs a statement once for the values of each row, all in one transaction of a connection of
    /// its own.
    static void runForEach(const QString &statement, const QList<QVariantList> &rows);
    /// The texts of the first column of all rows that a statement gives, asked likewise.
    static QStringList askAll(const QString &statement);

private:
    friend class ScriptedClient;

    QList<Exchange> m_scripted;
    QList<Exchange> m_done;
    std::function<void()> m_duringExchange;
};
