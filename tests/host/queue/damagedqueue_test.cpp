// A damaged file is set aside whole, what can be read of it comes back, and the queue goes on.

#include "host/framework/currenttime.h"
#include "host/queue/queuecheck.h"
#include "host/storage/filelock.h"
#include "host/storage/storageerror.h"
#include "tests/host/queue/queuefixture.h"
#include "tests/host/storage/files.h"
#include "tests/support/logcapture.h"

#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int messagesGiven = 40;
constexpr qsizetype pageSize = 4096;
const QStringList parts{u""_s, u"-wal"_s, u"-shm"_s};

QByteArray withRandomPages(QByteArray contents)
{
    // Every fourth page but the first, so that leaves and inner pages are among them.
    for (qsizetype at = 3 * pageSize; at + pageSize <= contents.size(); at += 4 * pageSize)
        for (qsizetype byte = 0; byte < pageSize; ++byte)
            contents[at + byte] = static_cast<char>((at + byte * 31) % 251);
    return contents;
}

class DamagedQueueTest : public testing::Test, public QueueFixture
{
protected:
    static QString folder() { return QFileInfo(databaseFile()).absolutePath(); }

    /// A closed queue with messages of several pages each.
    void givenFilledQueue()
    {
        for (int number = 0; number < messagesGiven; ++number)
            givenMessage(bodyOf(number));
        Singleton<DBQueueBroker>::reset();
    }
    /// The same as a killed process leaves it: what was enqueued stands in the log only.
    void givenKilledQueue()
    {
        givenMessage(bodyOf(0));
        Singleton<DBQueueBroker>::reset();
        for (int number = 1; number < messagesGiven; ++number)
            givenMessage(bodyOf(number));
        QMap<QString, QByteArray> left;
        for (const QString &part : parts)
            left[part] = files::contents(databaseFile() + part);
        Singleton<DBQueueBroker>::reset();
        for (const QString &part : parts)
            files::put(databaseFile() + part, left.value(part));
    }
    static QString bodyOf(int number) { return QString::number(number) + QString(9000, u'x'); }
    static void givenDamage(const std::function<QByteArray(const QByteArray &)> &damage)
    {
        files::put(databaseFile(), damage(files::contents(databaseFile())));
    }
    static QStringList setAside()
    {
        return QDir(folder()).entryList(
            {u"queue.sqlite.damaged-*"_s}, QDir::Files | QDir::Hidden, QDir::Name);
    }
    static QByteArray firstSetAside()
    {
        return files::contents(folder() + u'/' + setAside().value(0));
    }
    /// Ids of the waiting notices.
    static QStringList noticesOfOpening()
    {
        QStringList ids;
        for (const tr::Tr &notice : queue()->open())
            ids.append(notice.id());
        return ids;
    }
};

struct Damage
{
    const char *name;
    std::function<QByteArray(const QByteArray &)> damage;
    int fewestSaved;
};

void PrintTo(const Damage &damage, std::ostream *out)
{
    *out << damage.name;
}

class EveryDamageTest : public DamagedQueueTest, public testing::WithParamInterface<Damage>
{ };

const Damage damages[]{
    {"HeaderOverwritten",
        [](const QByteArray &file) -> QByteArray { return QByteArray(100, 'x') + file.mid(100); },
        messagesGiven},
    {"FirstPageOverwritten",
        [](const QByteArray &file) -> QByteArray {
            return QByteArray(pageSize, 'x') + file.mid(pageSize);
        },
        messagesGiven},
    {"Halved", [](const QByteArray &file) { return file.left(file.size() / 2); }, 10},
    {"RandomPages", withRandomPages, 1},
    {"Empty", [](const QByteArray &) { return QByteArray(); }, 0},
    {"Text", [](const QByteArray &) { return QByteArray("some notes\n").repeated(1000); }, 0},
};

INSTANTIATE_TEST_SUITE_P(Files, EveryDamageTest, testing::ValuesIn(damages),
    [](const auto &row) { return row.param.name; });

TEST_P(EveryDamageTest, IsSetAsideAndWhatCanBeReadComesBack)
{
    givenFilledQueue();
    givenDamage(GetParam().damage);
    const QByteArray damaged = files::contents(databaseFile());
    EXPECT_EQ(noticesOfOpening().value(0), u"queueSetAside"_s);
    EXPECT_EQ(firstSetAside(), damaged);
    EXPECT_GE(queue()->waiting(), GetParam().fewestSaved);
    RecordProperty("saved", queue()->waiting());
}

TEST_P(EveryDamageTest, QueueGoesOnBehindWhatWasSaved)
{
    givenFilledQueue();
    givenDamage(GetParam().damage);
    givenMessage(u"new"_s);
    const DeliveryReport report = whenDelivered();
    EXPECT_GE(report.delivered, GetParam().fewestSaved + 1);
    EXPECT_EQ(sentBodies().last(), u"new"_s);
}

TEST_P(EveryDamageTest, NothingIsSavedTwice)
{
    givenFilledQueue();
    givenDamage(GetParam().damage);
    queue()->open();
    const int saved = queue()->waiting();
    Singleton<DBQueueBroker>::reset();
    EXPECT_TRUE(noticesOfOpening().isEmpty());
    EXPECT_EQ(queue()->waiting(), saved);
}

TEST_P(EveryDamageTest, WhatStoodInTheLogComesBackToo)
{
    givenKilledQueue();
    givenDamage(GetParam().damage);
    const QByteArray log = files::contents(databaseFile() + u"-wal"_s);
    queue()->open();
    // A database that can be read with its log is whole: only its beginning was damaged.
    if (setAside().isEmpty())
        EXPECT_EQ(queue()->waiting(), messagesGiven);
    else
        EXPECT_EQ(files::contents(folder() + u'/' + setAside().value(0) + u"-wal"_s), log);
    EXPECT_GE(queue()->waiting(), messagesGiven - 1);
}

TEST_F(DamagedQueueTest, SoundFileIsNotSetAside)
{
    givenFilledQueue();
    EXPECT_TRUE(noticesOfOpening().isEmpty());
    EXPECT_TRUE(setAside().isEmpty());
    EXPECT_EQ(queue()->waiting(), messagesGiven);
}

TEST_F(DamagedQueueTest, KilledQueueIsSound)
{
    givenKilledQueue();
    EXPECT_TRUE(noticesOfOpening().isEmpty());
    EXPECT_EQ(queue()->waiting(), messagesGiven);
}

TEST_F(DamagedQueueTest, LogWhoseFileIsGoneIsKeptAndRead)
{
    givenKilledQueue();
    ASSERT_TRUE(QFile::remove(databaseFile()));
    EXPECT_EQ(noticesOfOpening(), (QStringList{u"queueSetAside"_s, u"queueSalvaged"_s}));
    EXPECT_GE(queue()->waiting(), messagesGiven - 1);
}

TEST_F(DamagedQueueTest, CommitThatTheLogHasNotWholeIsNotRead)
{
    givenKilledQueue();
    ASSERT_TRUE(QFile::remove(databaseFile()));
    const QString log = databaseFile() + u"-wal"_s;
    ASSERT_TRUE(QFile::resize(log, QFileInfo(log).size() - 1));
    const auto notices = queue()->open();
    // The first message was in the file itself.
    EXPECT_EQ(queue()->waiting(), messagesGiven - 2);
    EXPECT_TRUE(notices.last().ru().endsWith(u"не читаются: 1"_s))
        << qPrintable(notices.last().ru());
}

TEST_F(DamagedQueueTest, LogIsReadUpToWhereItWasChanged)
{
    givenKilledQueue();
    ASSERT_TRUE(QFile::remove(databaseFile()));
    const QString log = databaseFile() + u"-wal"_s;
    QByteArray contents = files::contents(log);
    contents[contents.lastIndexOf("xxxx")] = 'y';
    files::put(log, contents);
    const auto notices = queue()->open();
    // The first message was in the file itself.
    EXPECT_EQ(queue()->waiting(), messagesGiven - 2);
    EXPECT_TRUE(notices.last().ru().endsWith(u"не читаются: 1"_s))
        << qPrintable(notices.last().ru());
}

TEST_F(DamagedQueueTest, SavedMessagesAreWhatTheyWere)
{
    givenMessage(u"<a>\u0001Ёж\r\n</a>"_s);
    ask(u"UPDATE messages SET attempts = 3, state = 'sending', lease_owner = 'somebody'"_s);
    const QString id = queue()->list().first().id;
    Singleton<DBQueueBroker>::reset();
    givenDamage(damages[1].damage);
    const QueueMessage saved = queue()->list().value(0);

    EXPECT_EQ(saved.id, id);
    EXPECT_EQ(saved.attempts, 3);
    EXPECT_EQ(saved.state, MessageState::Pending);
    EXPECT_TRUE(saved.leaseOwner.isEmpty());
    whenDelivered();
    EXPECT_EQ(exchanges().first().body, u"<a>\u0001Ёж\r\n</a>"_s.toUtf8());
    EXPECT_EQ(exchanges().first().headers.value(u"Authorization"_s), u"Basic c2VjcmV0"_s);
}

TEST_F(DamagedQueueTest, SettledMessagesStaySettled)
{
    givenMessage(u"one"_s);
    whenDelivered();
    Singleton<DBQueueBroker>::reset();
    givenDamage(damages[1].damage);
    EXPECT_EQ(queue()->waiting(), 0);
    EXPECT_EQ(ask(u"SELECT state FROM messages"_s), QVariantList{u"delivered"_s});
}

TEST_F(DamagedQueueTest, TwoDamagedFilesOfOneMomentAreBothKept)
{
    givenFilledQueue();
    givenDamage(damages[5].damage);
    queue()->open();
    Singleton<DBQueueBroker>::reset();
    givenDamage(damages[5].damage);
    queue()->open();
    EXPECT_EQ(setAside().filter(u"salvaged"_s).size(), 2);
    EXPECT_EQ(setAside().size(), 4);
}

TEST_F(DamagedQueueTest, FilesThatAreSetAsideStayPrivate)
{
    givenFilledQueue();
    givenDamage(damages[3].damage);
    queue()->open();
    for (const QString &name : files::namesIn(folder()))
        EXPECT_TRUE(files::isPrivate(folder() + u'/' + name)) << qPrintable(name);
}

TEST_F(DamagedQueueTest, SavingThatWasCutShortIsDoneAtTheNextOpening)
{
    givenFilledQueue();
    ASSERT_TRUE(QFile::rename(databaseFile(), databaseFile() + u".damaged-20241121-120000"_s));
    EXPECT_EQ(noticesOfOpening(), QStringList{u"queueSalvaged"_s});
    EXPECT_EQ(queue()->waiting(), messagesGiven);
}

TEST_F(DamagedQueueTest, MessageWhoseLastPageIsLostIsNotSentInPart)
{
    givenMessage(QString(9000, u'x'));
    Singleton<DBQueueBroker>::reset();
    givenDamage([](const QByteArray &file) -> QByteArray {
        QByteArray damaged = file;
        const qsizetype end = damaged.lastIndexOf("xxxx") + 4;
        const qsizetype page = (end - 1) / pageSize * pageSize;
        return damaged.replace(page, pageSize, QByteArray(pageSize, 'y'))
            .replace(0, 100, QByteArray(100, 'y'));
    });
    const auto notices = queue()->open();
    EXPECT_EQ(queue()->waiting(), 0);
    EXPECT_TRUE(notices.last().ru().endsWith(u"восстановлено сообщений: 0, не читаются: 1"_s))
        << qPrintable(notices.last().ru());
}

class AnyDamageTest : public DamagedQueueTest, public testing::WithParamInterface<unsigned>
{ };

TEST_P(AnyDamageTest, LeavesAQueueThatGoesOn)
{
    givenFilledQueue();
    std::mt19937 engine(GetParam());
    givenDamage([&engine](QByteArray file) {
        const auto below = [&engine](qsizetype end) {
            return std::uniform_int_distribution<qsizetype>(0, end - 1)(engine);
        };
        for (int place = 0; place < 40; ++place) {
            const qsizetype begin = below(file.size());
            const qsizetype end = qMin(begin + below(64), file.size());
            for (qsizetype at = begin; at < end; ++at)
                file[at] = static_cast<char>(below(256));
        }
        return file;
    });
    queue()->open();
    givenMessage(u"new"_s);
    EXPECT_GT(whenDelivered().delivered, 0);
    EXPECT_EQ(sentBodies().last(), u"new"_s);
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnyDamageTest, testing::Range(0U, 12U));

TEST_F(DamagedQueueTest, DamageThatOnlyUseShowsIsMendedToo)
{
    givenFilledQueue();
    queue()->open();
    EXPECT_THROW(queue()->inOffice([](QueueOffice &) -> int {
        throw QueueDamaged({tr::undefined, u"a row could not be read"_s});
    }),
        QueueDamaged);
    EXPECT_EQ(noticesOfOpening(), (QStringList{u"queueSetAside"_s, u"queueSalvaged"_s}));
    EXPECT_EQ(queue()->waiting(), messagesGiven);
    Singleton<DBQueueBroker>::reset();
    EXPECT_TRUE(noticesOfOpening().isEmpty());
}

TEST_F(DamagedQueueTest, LogSaysItLoudly)
{
    const LogCapture log(u"poshost.queue"_s);
    givenFilledQueue();
    givenDamage(damages[5].damage);
    queue()->open();
    ASSERT_EQ(log.lines().size(), 2);
    EXPECT_TRUE(log.lines().first().contains(u"ERROR"_s));
    EXPECT_TRUE(log.lines().first().contains(folder() + u'/' + setAside().value(0)));
}

TEST_F(DamagedQueueTest, FileThatOthersHaveOpenStaysWhereItIs)
{
    givenFilledQueue();
    givenDamage(damages[5].damage);
    FileLock other(databaseFile() + u".open"_s);
    ASSERT_TRUE(other.share());
    EXPECT_THROW(queue()->open(), StorageError);
    EXPECT_TRUE(setAside().isEmpty());
}

const QDateTime noon(QDate(2024, 11, 21), QTime(12, 0), Qt::UTC);

class QueueCheckTest : public DamagedQueueTest
{
protected:
    /// Too large to be read through at every opening.
    void givenLargeQueue()
    {
        givenFilledQueue();
        const auto filler = QByteArray(1024 * 1024, 'f');
        while (QFileInfo(databaseFile()).size() <= queuecheck::bytesAlwaysReadThrough)
            ask(u"INSERT INTO messages (id, queue, remark, url, headers, body, correlation_id, "
                u"enqueued, attempts, next_attempt, last_error, state, answer) VALUES "
                u"(hex(randomblob(16)), 'q', '', '', '{}', ?, '', '', 0, '', '', 'parked', '')"_s,
                {filler});
    }
    void givenClockAt(const QDateTime &time)
    {
        now = time;
        MockFactory<CurrentTime>::setCreator([this] {
            class Frozen : public CurrentTime
            {
            public:
                explicit Frozen(const QDateTime &time)
                    : m_time(time)
                { }
                [[nodiscard]] QDateTime currentDateTime() const override { return m_time; }

            private:
                QDateTime m_time;
            };
            return QSharedPointer<Frozen>::create(now);
        });
    }
    static void givenDamageInTheMiddle()
    {
        QFile file(databaseFile());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.seek(5 * pageSize));
        file.write(QByteArray(pageSize, 'x'));
    }
    static bool isFound() { return !queuecheck::lookAt(databaseFile()).damage.isEmpty(); }
    void givenOpenedAt(const QDateTime &time)
    {
        givenClockAt(time);
        queue()->open();
        Singleton<DBQueueBroker>::reset();
    }
    void givenReadAtNoon() { givenOpenedAt(noon); }

    QDateTime now;
};

TEST_F(QueueCheckTest, LargeFileIsReadThroughOnceADay)
{
    givenLargeQueue();
    givenReadAtNoon();
    givenDamageInTheMiddle();
    givenClockAt(noon.addSecs(24 * 3600 - 1));
    EXPECT_FALSE(isFound());
    givenClockAt(noon.addSecs(24 * 3600));
    EXPECT_TRUE(isFound());
}

TEST_F(QueueCheckTest, SmallFileIsReadThroughAtEveryOpening)
{
    givenFilledQueue();
    givenReadAtNoon();
    EXPECT_TRUE(queuecheck::lookAt(databaseFile()).readThrough);
    givenDamageInTheMiddle();
    EXPECT_TRUE(isFound());
}

TEST_F(QueueCheckTest, SmallFileIsWrittenToOnceADayWhenNothingHappens)
{
    givenFilledQueue();
    givenOpenedAt(noon);
    const QByteArray atNoon = files::contents(databaseFile());
    givenOpenedAt(noon.addSecs(24 * 3600 - 1));
    EXPECT_EQ(files::contents(databaseFile()), atNoon);
    givenOpenedAt(noon.addSecs(24 * 3600));
    EXPECT_NE(files::contents(databaseFile()), atNoon);
}

TEST_F(QueueCheckTest, ReadingOfALargeFileIsAlwaysRemembered)
{
    givenLargeQueue();
    givenOpenedAt(noon);
    files::put(databaseFile() + u"-wal"_s, "the log of a killed process");
    givenOpenedAt(noon.addSecs(3600));
    givenDamageInTheMiddle();
    givenClockAt(noon.addSecs(24 * 3600));
    EXPECT_FALSE(isFound());
}

TEST_F(QueueCheckTest, ReadingOfAClockThatRanAheadSaysNothing)
{
    givenLargeQueue();
    givenReadAtNoon();
    givenDamageInTheMiddle();
    givenClockAt(noon.addSecs(-1));
    EXPECT_TRUE(isFound());
}

TEST_F(QueueCheckTest, LargeFileIsReadThroughAfterABadEnd)
{
    givenLargeQueue();
    givenReadAtNoon();
    givenDamageInTheMiddle();
    files::put(databaseFile() + u"-wal"_s, "the log of a killed process");
    EXPECT_TRUE(isFound());
}

TEST_F(QueueCheckTest, ShortFileIsFoundWithoutReadingItThrough)
{
    givenLargeQueue();
    givenReadAtNoon();
    ASSERT_TRUE(QFile::resize(databaseFile(), QFileInfo(databaseFile()).size() - pageSize));
    EXPECT_TRUE(isFound());
}

} // namespace
