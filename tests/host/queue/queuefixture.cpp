#include "tests/host/queue/queuefixture.h"

#include "host/storage/statefolder.h"
#include "tests/host/queue/queueengine.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QUuid>

using namespace Qt::Literals::StringLiterals;

class ScriptedClient : public RestClient
{
public:
    explicit ScriptedClient(QueueFixture *fixture)
        : m_fixture(fixture)
    { }

    void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers) override
    {
        Exchange exchange;
        if (!m_fixture->m_scripted.isEmpty())
            exchange = m_fixture->m_scripted.takeFirst();
        exchange.url = url;
        exchange.body = body;
        exchange.headers = headers;
        m_fixture->m_done.append(exchange);
        if (const auto action = m_fixture->m_duringExchange)
            action();
        m_errorCode = exchange.errorCode;
        if (m_errorCode != None)
            m_errorMessage = tr::Tr(u"id"_s, u"Ошибка %1"_s).arg(QString::number(m_errorCode));
        (m_errorCode == None ? m_responseBody : m_failedBody) = exchange.answer;
    }

private:
    QueueFixture *m_fixture;
};

QueueFixture::QueueFixture()
{
    queueengine::begin();
    const QString database = queueengine::setting();
    if (!database.isEmpty())
        givenSetting(u"Queue:database"_s, database);
    MockFactory<RestClient>::setCreator(
        [this] { return QSharedPointer<ScriptedClient>::create(this); });
}

QueueFixture::~QueueFixture() = default;

void QueueFixture::givenMessage(const QString &body, const QString &name)
{
    const QVariantMap headers{{u"Authorization"_s, u"Basic c2VjcmV0"_s}};
    queue()->enqueue(
        name, {{u"url"_s, u"http://service/"_s}, {u"headers"_s, headers}, {u"body"_s, body}}, {});
}

QStringList QueueFixture::sentBodies() const
{
    QStringList bodies;
    for (const Exchange &exchange : m_done)
        bodies.append(QString::fromUtf8(exchange.body));
    return bodies;
}

QString QueueFixture::databaseFile()
{
    return Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s;
}

namespace {

// Hands a connection of its own over.
void connected(const std::function<void(QSqlDatabase &)> &work)
{
    const QString name = QUuid::createUuid().toString();
    {
        auto database = queueengine::connect(name);
        if (!database.open())
            qFatal("%s", qPrintable(database.lastError().text()));
        work(database);
    }
    QSqlDatabase::removeDatabase(name);
}

void execute(QSqlQuery &query, const QString &statement, const QVariantList &bound)
{
    bool done = bound.isEmpty() || query.prepare(statement);
    for (const QVariant &value : bound)
        query.addBindValue(value);
    done = done && (bound.isEmpty() ? query.exec(statement) : query.exec());
    if (!done)
        qFatal("%s", qPrintable(query.lastError().text()));
}

// Runs a statement and hands its result over.
void run(const QString &statement, const QVariantList &bound,
    const std::function<void(QSqlQuery &)> &read)
{
    connected([&](QSqlDatabase &database) {
        QSqlQuery query(database);
        execute(query, statement, bound);
        read(query);
    });
}

} // namespace

void QueueFixture::runForEach(const QString &statement, const QList<QVariantList> &rows)
{
    connected([&](QSqlDatabase &database) {
        if (!database.transaction())
            qFatal("%s", qPrintable(database.lastError().text()));
        for (const QVariantList &row : rows) {
            QSqlQuery query(database);
            execute(query, statement, row);
        }
        if (!database.commit())
            qFatal("%s", qPrintable(database.lastError().text()));
    });
}

QVariantList QueueFixture::ask(const QString &statement, const QVariantList &bound)
{
    QVariantList values;
    run(statement, bound, [&values](QSqlQuery &query) {
        if (query.next())
            for (int column = 0; column < query.record().count(); ++column)
                values.append(query.value(column));
    });
    return values;
}

QStringList QueueFixture::askAll(const QString &statement)
{
    QStringList texts;
    run(statement, {}, [&texts](QSqlQuery &query) {
        while (query.next())
            texts.append(query.value(0).toString());
    });
    return texts;
}
