#include "tests/emulator/support/certificate.h"

#include <QProcess>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

QStringList givenCertificate(const QDir &folder)
{
    const QString certificate = folder.filePath(u"cert.pem"_s);
    const QString key = folder.filePath(u"key.pem"_s);
    QProcess openssl;
    openssl.setStandardErrorFile(QProcess::nullDevice());
    openssl.start(u"openssl"_s,
        {u"req"_s, u"-x509"_s, u"-newkey"_s, u"ec"_s, u"-pkeyopt"_s,
            u"ec_paramgen_curve:prime256v1"_s, u"-nodes"_s, u"-days"_s, u"2"_s, u"-subj"_s,
            u"/CN=localhost"_s, u"-addext"_s, u"subjectAltName=IP:127.0.0.1"_s, u"-keyout"_s, key,
            u"-out"_s, certificate});
    EXPECT_TRUE(openssl.waitForFinished());
    return {u"--tls-cert"_s, certificate, u"--tls-key"_s, key};
}

} // namespace emulator
