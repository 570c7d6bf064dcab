#include "host/net/restclient.h"
#include "host/queue/dbqueuebroker.h"
#include "host/storage/statefolder.h"
#include "tests/powercut/laws.h"
#include "tests/powercut/messagebooks.h"
#include "tests/powercut/samples.h"
#include "tests/support/hostfixture.h"

#include <QSqlDatabase>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace powercut::laws {

namespace {

/// Delivers everything, and keeps what it was given.
class Keeper : public RestClient
{
public:
    explicit Keeper(QByteArrayList &sent)
        : m_sent(sent)
    { }

    void post(const QUrl &, const QByteArray &body, const QHash<QString, QString> &) override
    {
        m_sent.append(body);
    }

private:
    QByteArrayList &m_sent;
};

struct Row
{
    int message = 0;
    QByteArray body;
    QString state;
    int attempts = 0;
};

struct Table
{
    QString integrity;
    QList<Row> rows; ///< in order
};

// Over a connection of its own, as another program would.
Table readTable()
{
    Table table;
    const QString connection = u"powercut"_s;
    {
        auto database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setDatabaseName(Singleton<StateFolder>::instance()->queue() + u"/queue.sqlite"_s);
        database.open();
        QSqlQuery query(database);
        if (query.exec(u"PRAGMA integrity_check"_s) && query.next())
            table.integrity = query.value(0).toString();
        query.exec(u"SELECT remark, body, state, attempts FROM messages ORDER BY number"_s);
        while (query.next())
            table.rows.append({query.value(0).toInt(), query.value(1).toByteArray(),
                query.value(2).toString(), query.value(3).toInt()});
    }
    QSqlDatabase::removeDatabase(connection);
    return table;
}

QString waitingOr(const QString &state)
{
    return state == u"sending" ? u"pending"_s : state;
}

/// Compares the queue with what the subject said of it.
class MessageLaws
{
public:
    MessageLaws(quint32 seed, const Story &story)
        : m_seed(seed)
    {
        for (const QStringList &words : story.said)
            m_said.note(words);
        if (story.next && story.next->first() == u"enqueued")
            m_begun = story.next->value(1).toInt();
    }

    QStringList violations()
    {
        auto *const queue = Singleton<DBQueueBroker>::instance();
        const auto notices = queue->open();
        for (const tr::Tr &notice : notices)
            say(notice.ru());
        const Table table = readTable();
        if (table.integrity != u"ok")
            say(u"the file is damaged: %1"_s.arg(table.integrity));
        compare(table.rows);
        goOn(*queue, table.rows);
        return m_sentences;
    }

private:
    void say(const QString &sentence) { m_sentences.append(sentence); }

    void compare(const QList<Row> &rows)
    {
        int last = 0;
        std::map<int, MessageBooks::Message> missing = m_said.messages;
        for (const Row &row : rows) {
            if (row.message <= last)
                say(u"message %1 stands behind message %2"_s.arg(row.message).arg(last));
            last = row.message;
            compare(row);
            missing.erase(row.message);
        }
        for (const auto &[message, said] : missing)
            say(u"message %1 was enqueued and is missing"_s.arg(message));
    }

    void compare(const Row &row)
    {
        const QString name = u"message %1 "_s.arg(row.message);
        const auto said = m_said.messages.find(row.message);
        if (said == m_said.messages.end() && row.message != m_begun)
            say(name + u"was never enqueued");
        if (row.body != samples::body(m_seed, row.message))
            say(name + u"is damaged");
        if (said == m_said.messages.end())
            return;
        if (row.attempts < said->second.attempts)
            say(name
                + u"was sent %1 times, %2 are counted"_s.arg(said->second.attempts)
                      .arg(row.attempts));
        const bool isFinal
            = said->second.outcome == u"delivered" || said->second.outcome == u"refused";
        if (isFinal && row.state != said->second.outcome)
            say(name + u"was %1, and is %2 now"_s.arg(said->second.outcome, row.state));
    }

    void goOn(DBQueueBroker &queue, const QList<Row> &rows)
    {
        QByteArrayList waiting;
        for (const Row &row : rows)
            if (waitingOr(row.state) == u"pending")
                waiting.append(row.body);
        QByteArrayList sent;
        MockFactory<RestClient>::setCreator(
            [&sent] { return QSharedPointer<Keeper>::create(sent); });
        queue.deliver();
        if (sent != waiting)
            say(u"%1 messages waited, %2 were sent, or others, or in another order"_s.arg(
                QString::number(waiting.size()), QString::number(sent.size())));
        if (queue.waiting() != 0)
            say(u"%1 messages wait still"_s.arg(queue.waiting()));
    }

    quint32 m_seed;
    MessageBooks m_said;
    int m_begun = 0; ///< was being enqueued; 0: none
    QStringList m_sentences;
};

} // namespace

QStringList messagesAreKept(const QString &folder, quint32 seed, const Story &story)
{
    const HostFixture host;
    Singleton<StateFolder>::instance()->setPath(folder + u'/' + samples::stateFolder);
    try {
        return MessageLaws(seed, story).violations();
    } catch (const std::exception &error) {
        return {u"the queue does not work: "_s + QString::fromUtf8(error.what())};
    }
}

} // namespace powercut::laws
