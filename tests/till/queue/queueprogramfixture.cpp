#include "tests/till/queue/queueprogramfixture.h"

#include "host/queue/queueoffice.h"
#include "host/queue/spillfile.h"

#include <QDir>

using namespace Qt::StringLiterals;

const QString QueueProgramFixture::card = u"2900000000017"_s;
const QString QueueProgramFixture::credentials = u"Basic c2VjcmV0OnNlY3JldA=="_s;

QueueProgramFixture::QueueProgramFixture()
{
    EXPECT_TRUE(QDir().mkpath(stateFolder() + u"/queue"_s));
}

QString QueueProgramFixture::databaseFile() const
{
    return stateFolder() + u"/queue/queue.sqlite"_s;
}

QueueMessage QueueProgramFixture::makeMessage(const QString &id)
{
    QueueMessage message;
    message.id = id;
    message.queue = u"korvelloyaltyonline"_s;
    message.url = u"http://127.0.0.1:9/"_s;
    message.headers
        = {{u"Authorization"_s, credentials}, {u"Content-Type"_s, u"text/xml; charset=UTF-8"_s}};
    message.body = u"<Card><CardNumber>%1</CardNumber></Card>"_s.arg(card).toUtf8();
    message.enqueued = QDateTime::currentDateTimeUtc();
    message.nextAttempt = message.enqueued;
    return message;
}

void QueueProgramFixture::givenMessage(const QueueMessage &message)
{
    MessageStore(databaseFile()).append(message);
}

void QueueProgramFixture::givenMessage(const QString &id, MessageState state)
{
    QueueMessage message = makeMessage(id);
    message.state = state;
    givenMessage(message);
}

void QueueProgramFixture::givenSpilled(const QueueMessage &message)
{
    EXPECT_TRUE(QDir().mkpath(databaseFile() + u".ballast"_s));
    SpillFile(databaseFile() + u".spill"_s).append(message);
}

void QueueProgramFixture::givenRoom()
{
    EXPECT_TRUE(QDir().rmdir(databaseFile() + u".ballast"_s));
}

void QueueProgramFixture::whenAsked(const QStringList &words)
{
    whenStarted(QStringList{u"queue"_s} + words + QStringList{u"--state"_s, stateFolder()});
}

nlohmann::json QueueProgramFixture::whenAskedForJson(const QStringList &words)
{
    whenAsked(words + QStringList{u"--json"_s});
    return nlohmann::json::parse(output.toStdString(), nullptr, false);
}

QueueMessage QueueProgramFixture::message(const QString &id) const
{
    MessageStore store(databaseFile());
    return QueueOffice(store).find(id).value(0);
}

QString QueueProgramFixture::stateOf(const QString &id) const
{
    return stateName(message(id).state);
}
