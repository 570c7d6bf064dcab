#include "host/net/certificate.h"
#include "tests/host/net/tlsserver.h"

#include <QFile>

#include <gtest/gtest.h>
#include <openssl/err.h>

using certificates::KeyMatch;

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

class CertificateTest : public testing::Test
{
protected:
    const TlsServer m_server;
    const TlsServer m_other;
    const QByteArray m_certificate = contents(m_server.certificateFile());
    const QByteArray m_key = contents(m_server.keyFile());
    const QByteArray m_otherKey = contents(m_other.keyFile());
};

TEST_F(CertificateTest, TellsNameAndTimes)
{
    const auto found = certificates::in(m_certificate);
    const QDateTime now = QDateTime::currentDateTimeUtc();

    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().subject, QStringLiteral("test"));
    EXPECT_LT(found.first().begins, now);
    EXPECT_GT(found.first().ends, now);
    EXPECT_LE(found.first().begins.secsTo(found.first().ends), 2 * 3600);
}

TEST_F(CertificateTest, FindsEachOfAText)
{
    EXPECT_EQ(certificates::in(m_certificate + "something else\n" + m_certificate).size(), 2);
}

TEST_F(CertificateTest, FindsNoneWhereThereIsNone)
{
    const QByteArray cut = m_certificate.left(m_certificate.size() / 2);
    for (const QByteArray &text : {QByteArray(), QByteArray("no PEM"), m_key, cut})
        EXPECT_TRUE(certificates::in(text).isEmpty()) << text.constData();
    EXPECT_EQ(ERR_peek_error(), 0U);
}

TEST_F(CertificateTest, KnowsItsKey)
{
    EXPECT_EQ(certificates::match(m_key, m_certificate), KeyMatch::Fits);
    EXPECT_EQ(certificates::match(m_certificate + m_key, m_certificate), KeyMatch::Fits);
    EXPECT_EQ(certificates::match(m_otherKey, m_certificate), KeyMatch::Differs);
    EXPECT_EQ(certificates::match(m_certificate, m_certificate), KeyMatch::NoKey);
    EXPECT_EQ(certificates::match(m_key, "no certificate"), KeyMatch::Differs);
}

} // namespace
