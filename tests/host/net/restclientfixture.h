#pragma once

#include "host/net/restclient.h"
#include "tests/support/hostfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/scriptedserver.h"
#include <log4qt/logmanager.h>

#include <QElapsedTimer>

#include <gtest/gtest.h>

/// A client, a server that answers as the test says, and what the exchange logged.
class RestClientFixture : public testing::Test, protected HostFixture
{
protected:
    static constexpr int shortLimitSeconds = 1;

    void whenPosted(const QUrl &url, const QByteArray &body = "<a/>",
        const QHash<QString, QString> &headers = {})
    {
        m_client = MockFactory<RestClient>::create();
        m_client->setTimeout(m_limitSeconds);
        m_client->setLogger(Log4Qt::LogManager::logger(m_loggerName));
        QElapsedTimer timer;
        timer.start();
        m_client->post(url, body, headers);
        m_milliseconds = timer.elapsed();
    }
    void whenPosted() { whenPosted(m_server.url()); }
    /// Beyond its limit an exchange may take what a busy machine needs, but never twice as long.
    void thenLimitHeld() const
    {
        constexpr qint64 millisecondsPerSecond = 1000;
        constexpr qint64 slack = 2000;
        EXPECT_EQ(m_client->errorCode(), RestClient::TimedOut);
        EXPECT_LT(m_milliseconds, m_limitSeconds * millisecondsPerSecond + slack);
    }
    void thenFailedWith(int error) const
    {
        EXPECT_EQ(m_client->errorCode(), error);
        EXPECT_TRUE(m_client->responseBody().isEmpty());
        EXPECT_FALSE(m_client->errorMessage().isEmpty());
    }
    void thenSucceeded() const
    {
        EXPECT_EQ(m_client->errorCode(), RestClient::None)
            << m_log.lines().join(u'\n').toStdString();
        EXPECT_TRUE(m_client->errorMessage().isEmpty());
    }

    const QString m_loggerName = QStringLiteral("restclienttest");
    LogCapture m_log{m_loggerName};
    ScriptedServer m_server;
    QSharedPointer<RestClient> m_client;
    int m_limitSeconds = 30;
    qint64 m_milliseconds = 0;
};
