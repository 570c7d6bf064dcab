#include "host/queue/server/serverconnection.h"

#include "host/queue/queuedatabase.h"
#include "host/queue/queueerror.h"
#include "host/queue/server/connectionwatch.h"
#include "host/queue/server/serverlookup.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QCoreApplication>
#include <QSqlDriver>
#include <QSqlField>

#include <libpq-fe.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace serverconnection {

namespace {

// Seconds; the library knows no shorter wait, and our own ends before it.
constexpr int answersWaitedFor = 2;
// Where it is kept open for hours, routers must not forget it between two sales.
constexpr int idleSecondsToProbe = 60;
// A machine that vanished within a transaction gives its locks back after this time.
constexpr int idleTransactionMilliseconds = 10000;
constexpr int statementMilliseconds = 2000;

QString quoted(QString value)
{
    value.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
    return u'\'' + value + u'\'';
}

QString options(const ServerAddress &address, const QString &networkAddress)
{
    QStringList options{u"connect_timeout=%1"_s.arg(answersWaitedFor),
        u"keepalives_idle=%1"_s.arg(
            idleSecondsToProbe), // For who looks at the server whose connections it has.
        u"application_name=korvel-queue-%1"_s.arg(QCoreApplication::applicationPid()),
        u"client_encoding=UTF8"_s};
    if (!networkAddress.isEmpty())
        options.append(u"hostaddr="_s + networkAddress);
    for (auto option = address.tls.cbegin(); option != address.tls.cend(); ++option)
        options.append(option.key() + u'=' + quoted(option.value()));
    return options.join(u';');
}

QString answerTo(QueueDatabase &database, const QString &question)
{
    QSqlQuery answer = database.run(question);
    return answer.next() ? answer.value(0).toString() : QString();
}

void demand(QueueDatabase &database, const QString &setting, const QString &wanted)
{
    const QString found = answerTo(database, u"SHOW "_s + setting);
    if (found != wanted)
        throw QueueUnreached(tr::Tr(u"queueServerSetting"_s,
            u"%1: на сервере очереди %2 = %3, а нужно %4; задайте это там"_s)
                                 .arg(database.fileName())
                                 .arg(setting)
                                 .arg(found)
                                 .arg(wanted));
}

QStringList literalsOf(const QSqlDatabase &database, const QVariantList &values)
{
    QStringList literals;
    for (const QVariant &value : values) {
        QSqlField field({}, value.metaType());
        if (value.typeId() == QMetaType::QString)
            field.setValue(value.toString().remove(QChar(u'\0')));
        else
            field.setValue(value);
        literals.append(database.driver()->formatValue(field));
    }
    return literals;
}

[[noreturn]] void failToReach(const ServerAddress &address, const tr::Tr &reason)
{
    throw QueueUnreached(tr::Tr(u"queueServerUnreached"_s,
        u"%1: нет связи с сервером очереди: %2; проверьте сервер, сеть и «Queue:database»"_s)
                             .arg(address.shown())
                             .arg(reason));
}

/// The network address of the server; empty for a socket.
QString find(const ServerAddress &address, std::chrono::steady_clock::time_point deadline)
{
    if (address.isSocket())
        return {};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    // No time at all would mean any time.
    const auto found = serverlookup::find(
        address.host, address.port, std::max(left / 2, std::chrono::milliseconds(1)));
    if (!found.error.isEmpty())
        failToReach(address, tr::Tr(tr::undefined, found.error));
    return found.networkAddress;
}

PGconn *handleOf(const QSqlDatabase &database)
{
    const QVariant handle = database.driver()->handle();
    return *static_cast<PGconn *const *>(handle.constData());
}

// What the server says unasked, its end for instance. The library would print it.
void logNotice(void *, const char *text)
{
    Log4Qt::LogManager::logger(u"poshost.queue"_s)
        ->info(u"the queue's server says: "_s + QString::fromUtf8(text).simplified());
}

} // namespace

void open(QSqlDatabase &database, const ServerAddress &address,
    std::chrono::steady_clock::time_point deadline)
{
    if (!database.isValid())
        failToReach(address,
            {u"queueDriverMissing"_s,
                u"не хватает драйвера Qt для PostgreSQL (libqt6sql6-psql)"_s});
    const QString networkAddress = find(address, deadline);
    database.setHostName(address.host);
    database.setPort(address.port);
    database.setDatabaseName(address.database);
    database.setUserName(address.user);
    database.setPassword(address.password);
    database.setConnectOptions(options(address, networkAddress));
    const ConnectionWatch watch(address, networkAddress, deadline);
    if (!database.open())
        failToReach(address, watch.hasCut() ? notAnsweredInTime() : shown(database.lastError()));
    PQsetNoticeProcessor(handleOf(database), logNotice, nullptr);
}

int socket(const QSqlDatabase &database)
{
    return PQsocket(handleOf(database));
}

void configure(QueueDatabase &database)
{
    database.run(u"SET synchronous_commit = on"_s);
    demand(database, u"synchronous_commit"_s, u"on"_s);
    demand(database, u"fsync"_s, u"on"_s);
    demand(database, u"server_encoding"_s, u"UTF8"_s);
    database.run(u"SET statement_timeout = %1"_s.arg(statementMilliseconds));
    database.run(
        u"SET idle_in_transaction_session_timeout = %1"_s.arg(idleTransactionMilliseconds));
}

tr::Tr notAnsweredInTime()
{
    return {u"queueServerLate"_s, u"сервер не ответил вовремя"_s};
}

tr::Tr shown(const QSqlError &error)
{
    return {tr::undefined, error.databaseText().simplified()};
}

QString preparation(const QString &name, const QString &statement)
{
    const QStringList parts = statement.split(u'?');
    QString numbered = parts.first();
    for (qsizetype value = 1; value < parts.size(); ++value)
        numbered += u'$' + QString::number(value) + parts.at(value);
    return u"PREPARE %1 AS "_s.arg(name) + numbered;
}

QString filled(const QSqlDatabase &database, const QString &statement, const QVariantList &values)
{
    const QStringList parts = statement.split(u'?');
    const QStringList literals = literalsOf(database, values);
    QString text = parts.first();
    for (qsizetype value = 1; value < parts.size(); ++value)
        text += literals.value(value - 1) + parts.at(value);
    return text;
}

QString execution(const QSqlDatabase &database, const QString &name, const QVariantList &values)
{
    return u"EXECUTE %1 (%2)"_s.arg(name, literalsOf(database, values).join(u','));
}

} // namespace serverconnection
