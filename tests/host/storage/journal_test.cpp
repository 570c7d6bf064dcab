// The journal: a line for every event, tied to its document; never in the way of a sale.

#include "host/framework/activitynotifier.h"
#include "host/framework/currenttime.h"
#include "host/framework/tr.h"
#include "host/storage/journal.h"
#include "host/storage/statefolder.h"
#include "tests/host/storage/files.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

class FrozenTime : public CurrentTime
{
public:
    [[nodiscard]] QDateTime currentDateTime() const override
    {
        return QDateTime(QDate(2024, 11, 21), QTime(12, 30, 1, 5), QTimeZone(3 * 3600));
    }
};

class JournalTest : public testing::Test, public HostFixture
{
protected:
    JournalTest()
    {
        MockFactory<CurrentTime>::setCreator([] { return QSharedPointer<FrozenTime>::create(); });
    }

    [[nodiscard]] static QString fileName()
    {
        return Singleton<StateFolder>::instance()->journal();
    }
    [[nodiscard]] static QList<QJsonObject> lines()
    {
        QList<QJsonObject> objects;
        for (const QByteArray &line : files::contents(fileName()).split('\n'))
            if (!line.isEmpty())
                objects.append(QJsonDocument::fromJson(line).object());
        return objects;
    }
};

TEST_F(JournalTest, EveryEventIsALine)
{
    const auto notifier = Singleton<ActivityNotifier>::instance();
    notifier->notify(Event(EActivityListener::DocumentEntered));
    notifier->notify(Event(EActivityListener::LoyaltyError, {{u"errorCode"_s, 80001}}));
    ASSERT_EQ(lines().size(), 2);
    EXPECT_EQ(lines().at(0)[u"kind"_s], u"event"_s);
    EXPECT_EQ(lines().at(0)[u"code"_s], 22);
    EXPECT_EQ(lines().at(0)[u"name"_s], u"DocumentEntered"_s);
    EXPECT_EQ(lines().at(1)[u"arguments"_s].toObject()[u"errorCode"_s], 80001);
}

TEST_F(JournalTest, EveryEventHasItsName)
{
    struct Row
    {
        EActivityListener::Event code;
        QString name;
    };
    const QList<Row> rows{
        {EActivityListener::ChequeClosed, u"ChequeClosed"_s},
        {EActivityListener::ChequeCancelled, u"ChequeCancelled"_s},
        {EActivityListener::DocumentEntered, u"DocumentEntered"_s},
        {EActivityListener::LoyaltyRequestStarted, u"LoyaltyRequestStarted"_s},
        {EActivityListener::LoyaltyRequestFinished, u"LoyaltyRequestFinished"_s},
        {EActivityListener::LoyaltyError, u"LoyaltyError"_s},
    };
    for (const Row &row : rows) {
        Singleton<ActivityNotifier>::instance()->notify(Event(row.code));
        EXPECT_EQ(lines().last()[u"name"_s], row.name);
    }
}

TEST_F(JournalTest, LineCarriesTimeAndDocument)
{
    givenCurrentDocument()->setCorrelationId(u"c-1"_s);
    Journal::append(u"exception"_s, {{u"text"_s, u"what"_s}});
    const QJsonObject line = lines().first();
    EXPECT_EQ(line[u"time"_s], u"2024-11-21T12:30:01.005+03:00"_s);
    EXPECT_EQ(line[u"correlationId"_s], u"c-1"_s);
    EXPECT_EQ(line[u"document"_s], u"17"_s);
    EXPECT_EQ(line[u"kind"_s], u"exception"_s);
    EXPECT_EQ(line[u"text"_s], u"what"_s);
}

TEST_F(JournalTest, EmptyDeskHasNoDocument)
{
    Journal::append(u"event"_s, {});
    EXPECT_TRUE(lines().first()[u"correlationId"_s].isNull());
    EXPECT_TRUE(lines().first()[u"document"_s].isNull());
}

TEST_F(JournalTest, MessagesAreWrittenInRussianAtAnyDepth)
{
    const QVariant message = tr::Tr(u"id"_s, u"Купон %1"_s).arg(u"99"_s);
    Journal::append(
        u"event"_s, {{u"a"_s, message}, {u"b"_s, QVariantMap{{u"c"_s, QVariantList{message}}}}});
    EXPECT_EQ(lines().first()[u"a"_s], u"Купон 99"_s);
    EXPECT_EQ(lines().first()[u"b"_s][u"c"_s][0], u"Купон 99"_s);
}

TEST_F(JournalTest, OneLineStaysOneLine)
{
    Journal::append(u"event"_s, {{u"text"_s, u"one\ntwo"_s}});
    EXPECT_EQ(files::contents(fileName()).count('\n'), 1);
    EXPECT_EQ(lines().first()[u"text"_s], u"one\ntwo"_s);
}

TEST_F(JournalTest, IsForItsOwnerOnly)
{
    Journal::append(u"event"_s, {});
    EXPECT_TRUE(files::isPrivate(fileName()));
}

TEST_F(JournalTest, WithoutAStateFolderNothingIsWritten)
{
    Singleton<StateFolder>::instance()->setPath({});
    const QString fileAtHome = fileName();
    const bool wasThere = QFile::exists(fileAtHome);
    Journal::append(u"event"_s, {});
    EXPECT_EQ(QFile::exists(fileAtHome), wasThere);
}

TEST_F(JournalTest, FailureWarnsOnceAndStopsNothing)
{
    const LogCapture log(u"poshost.journal"_s);
    ASSERT_TRUE(QDir(stateFolder()).mkdir(u"journal.jsonl"_s));
    Journal::append(u"event"_s, {});
    Journal::append(u"event"_s, {});
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines().first().startsWith(u"WARN "_s + fileName()));
}

TEST_F(JournalTest, FailureAfterARecoveryWarnsAgain)
{
    const LogCapture log(u"poshost.journal"_s);
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(QDir(stateFolder()).mkdir(u"journal.jsonl"_s));
        Journal::append(u"event"_s, {});
        ASSERT_TRUE(QDir(stateFolder()).rmdir(u"journal.jsonl"_s));
        Journal::append(u"event"_s, {});
        ASSERT_TRUE(QFile::remove(fileName()));
    }
    EXPECT_EQ(log.lines().size(), 2);
}

TEST_F(JournalTest, LineThatWasTornOffDoesNotSwallowTheNextOne)
{
    files::put(fileName(), "{\"kind\":\"whole\"}\n{\"kind\":\"to");
    Journal::append(u"event"_s, {});
    const auto written = files::contents(fileName()).split('\n');
    ASSERT_EQ(written.size(), 4);
    EXPECT_EQ(written[1], "{\"kind\":\"to");
    EXPECT_EQ(QJsonDocument::fromJson(written[2])[u"kind"_s].toString(), u"event");
}

TEST_F(JournalTest, NothingStandsBetweenWholeLines)
{
    Journal::append(u"event"_s, {});
    Journal::append(u"event"_s, {});
    EXPECT_EQ(files::contents(fileName()).split('\n').size(), 3);
}

} // namespace
