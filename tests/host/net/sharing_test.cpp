#include "host/net/connectattempt.h"
#include "host/net/exchangememory.h"
#include "tests/host/net/nameservers.h"
#include "tests/host/net/refusedport.h"
#include "tests/host/net/restclientfixture.h"
#include "tests/host/net/tlsserver.h"
#include "tests/support/delayingrelay.h"

#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <atomic>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What exchanges hand on to each other, as a server and a name server see it.
class SharingTest : public RestClientFixture
{
protected:
    using Resumed = QList<bool>;

    SharingTest() { givenTrustIn(m_tlsServer.certificateFile()); }

    void givenTrustIn(const QString &file) { givenSetting(u"RestClient:caFile"_s, file); }
    /// A file with the same contents.
    QString copyOf(const QString &file, const QString &name)
    {
        const QString copy = m_folder.filePath(name);
        QFile::copy(file, copy);
        return copy;
    }
    static void givenReplaced(const QString &file, const QString &with)
    {
        QFile::remove(file);
        QFile::copy(with, file);
    }
    void whenAsked(const TlsServer &server)
    {
        whenPosted(server.url());
        thenSucceeded();
    }
    void whenAsked() { whenAsked(m_tlsServer); }
    void whenAskedThrough(const DelayingRelay &relay)
    {
        QUrl url = m_tlsServer.url();
        url.setPort(relay.port());
        whenPosted(url);
        thenSucceeded();
    }
    static void thenResumed(const TlsServer &server, const Resumed &expected)
    {
        Resumed resumed;
        for (const TlsServer::Visit &visit : server.visits()) {
            resumed.append(visit.resumed);
            EXPECT_EQ(visit.requests, 1);
            EXPECT_FALSE(visit.sentEarly);
        }
        EXPECT_EQ(resumed, expected);
    }
    void thenResumed(const Resumed &expected) const { thenResumed(m_tlsServer, expected); }

    QTemporaryDir m_folder;
    TlsServer m_tlsServer;
};

TEST_F(SharingTest, ResumesTheSessionOnAConnectionOfItsOwn)
{
    whenAsked();
    whenAsked();
    whenAsked();

    thenResumed({false, true, true});
}

TEST_F(SharingTest, ResumesTheSessionWithAnOlderServer)
{
    const TlsServer server(TlsServer::Manner::SpeaksTls12);
    givenTrustIn(server.certificateFile());
    whenAsked(server);
    whenAsked(server);

    thenResumed(server, {false, true});
}

TEST_F(SharingTest, AsksAServerThatHasForgottenTheSessionJustOnce)
{
    whenAsked();
    m_tlsServer.forgetSessions();
    whenAsked();
    whenAsked();

    thenResumed({false, false, true});
}

TEST_F(SharingTest, TakesThreeRoundTripsWithASessionAndWithout)
{
    const DelayingRelay line(static_cast<quint16>(m_tlsServer.url().port()));
    whenAskedThrough(line);
    whenAskedThrough(line);

    EXPECT_EQ(line.roundTrips(), (QList<int>{3, 3}));
    thenResumed({false, true});
}

TEST_F(SharingTest, SavesARoundTripWithAnOlderServer)
{
    const TlsServer server(TlsServer::Manner::SpeaksTls12);
    givenTrustIn(server.certificateFile());
    const DelayingRelay line(static_cast<quint16>(server.url().port()));
    whenAskedThrough(line);
    whenAskedThrough(line);

    EXPECT_EQ(line.roundTrips(), (QList<int>{4, 3}));
}

TEST_F(SharingTest, ForgetsTheSessionWhenOtherAuthoritiesAreTrusted)
{
    whenAsked();
    givenTrustIn(copyOf(m_tlsServer.certificateFile(), u"other.pem"_s));
    whenAsked();

    thenResumed({false, false});
}

TEST_F(SharingTest, DistrustsAServerWhoseAuthorityWasReplaced)
{
    const QString authorities = copyOf(m_tlsServer.certificateFile(), u"authorities.pem"_s);
    const TlsServer stranger;
    givenTrustIn(authorities);
    whenAsked();
    givenReplaced(authorities, stranger.certificateFile());
    whenPosted(m_tlsServer.url());

    thenFailedWith(RestClient::TlsFailed);
}

TEST_F(SharingTest, ForgetsTheSessionOfAnotherCertificateOfItsOwn)
{
    const QString certificate = copyOf(m_tlsServer.certificateFile(), u"certificate.pem"_s);
    const QString key = copyOf(m_tlsServer.keyFile(), u"key.pem"_s);
    givenSetting(u"RestClient:clientCert"_s, certificate);
    givenSetting(u"RestClient:clientKey"_s, key);
    whenAsked();
    givenReplaced(certificate, m_tlsServer.certificateFile());
    whenAsked();
    givenReplaced(key, m_tlsServer.keyFile());
    whenAsked();
    whenAsked();

    thenResumed({false, false, false, true});
}

TEST_F(SharingTest, ForgetsTheSessionAfterAnExchangeThatFailed)
{
    whenAsked();
    whenPosted(RefusedPort().url());
    whenAsked();

    thenResumed({false, false});
}

TEST_F(SharingTest, KeepsTheSessionAfterARefusal)
{
    m_server.answer("<no/>", 500);
    whenAsked();
    whenPosted();
    whenAsked();

    thenResumed({false, true});
}

TEST_F(SharingTest, LooksANameUpOnce)
{
    const CountingNameServer nameServer;
    m_server.answer("<a/>");
    whenPosted(CountingNameServer::named(m_server.url()));
    whenPosted(CountingNameServer::named(m_server.url()));

    thenSucceeded();
    EXPECT_EQ(m_server.requests().size(), 2);
    EXPECT_EQ(nameServer.lookups(), 1);
}

TEST_F(SharingTest, LooksANameUpAgainAfterAnExchangeThatFailed)
{
    const CountingNameServer nameServer;
    m_server.answer("<a/>");
    whenPosted(CountingNameServer::named(m_server.url()));
    whenPosted(CountingNameServer::named(RefusedPort().url()));
    whenPosted(CountingNameServer::named(m_server.url()));

    thenSucceeded();
    EXPECT_EQ(nameServer.lookups(), 3);
}

/// The memory by itself.
class ExchangeMemoryTest : public testing::Test
{
protected:
    std::shared_ptr<SharedKnowledge> recalled(ExchangeMemory::TimePoint now = {})
    {
        return m_memory.recall(m_settings, now);
    }

    ExchangeSettings m_settings;
    ExchangeMemory m_memory;
};

TEST_F(ExchangeMemoryTest, IsTheSameForEveryExchange)
{
    const auto first = recalled();

    EXPECT_NE(first->namesAndSessions.get(), nullptr);
    EXPECT_EQ(recalled(), first);
}

TEST_F(ExchangeMemoryTest, EndsAfterAnHour)
{
    const auto first = recalled({});

    EXPECT_EQ(recalled(ExchangeMemory::TimePoint(1h) - 1ns), first);
    EXPECT_NE(recalled(ExchangeMemory::TimePoint(1h)), first);
}

TEST_F(ExchangeMemoryTest, IsAnotherBehindAProxy)
{
    const auto first = recalled();
    m_settings.proxy = "http://127.0.0.1:3128";

    EXPECT_NE(recalled(), first);
}

TEST_F(ExchangeMemoryTest, ReadsTheAuthoritiesAgainWhenTheyChangeOnly)
{
    const auto first = recalled();
    m_memory.forget(first);
    EXPECT_EQ(recalled()->authorities, first->authorities);

    m_settings.caFile = "/other/authorities.pem";
    EXPECT_NE(recalled()->authorities, first->authorities);
}

TEST_F(ExchangeMemoryTest, KeepsWhatFollowedTheForgotten)
{
    const auto first = recalled();
    m_memory.forget(first);
    const auto second = recalled();
    EXPECT_NE(second, first);

    m_memory.forget(first);
    EXPECT_EQ(recalled(), second);
}

TEST_F(ExchangeMemoryTest, MayBeUsedByThreadsAtOnce)
{
    constexpr int times = 200;
    constexpr std::size_t users = 4;
    std::atomic<int> recalls = 0;
    std::array<std::jthread, users> threads;
    for (std::jthread &thread : threads) {
        thread = std::jthread([this, &recalls] {
            for (int i = 0; i < times; ++i) {
                const auto knowledge = recalled();
                recalls
                    += knowledge != nullptr && knowledge->namesAndSessions.get() != nullptr ? 1 : 0;
                m_memory.forget(knowledge);
            }
        });
    }
    for (std::jthread &thread : threads)
        thread.join();

    EXPECT_EQ(recalls, static_cast<int>(users) * times);
}

TEST(ExchangeMemoryOfTheProcess, IsForgottenByAProbeThatFailed)
{
    const auto before = ExchangeMemory::instance().recall({}, std::chrono::steady_clock::now());
    EXPECT_FALSE(canConnect(RefusedPort().url(), {}, std::stop_token()));

    EXPECT_NE(ExchangeMemory::instance().recall({}, std::chrono::steady_clock::now()), before);
}

} // namespace
