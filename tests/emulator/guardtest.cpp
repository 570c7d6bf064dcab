#include "emulator/http/guard.h"

#include "emulator/http/server.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace emulator {
namespace {

HttpRequest withAuthorization(const QByteArray &value)
{
    HttpRequest request;
    request.authorization = value;
    return request;
}

TEST(Authorisation, WithoutAUserAdmitsEverybody)
{
    EXPECT_TRUE(Authorisation().admits(withAuthorization("Basic whatever")));
    EXPECT_TRUE(Authorisation().admits({}));
}

TEST(Authorisation, AdmitsTheRightCredentialsOnly)
{
    const Authorisation authorisation(u"till"_s, u"secret"_s);
    EXPECT_TRUE(authorisation.admits(withAuthorization("Basic dGlsbDpzZWNyZXQ=")));
    EXPECT_FALSE(authorisation.admits(withAuthorization("Basic dGlsbDpzZWNyZXR=")));
    EXPECT_FALSE(authorisation.admits(withAuthorization("Basic ")));
    EXPECT_FALSE(authorisation.admits({}));
}

TEST(OwnHost, IsALoopbackNameOrTheListeningOne)
{
    for (const QString &host : {u"localhost"_s, u"LOCALHOST:80"_s, u"127.0.0.1:4"_s, u"[::1]:80"_s,
             u"[::1]"_s, u"10.1.2.3:80"_s}) {
        SCOPED_TRACE(qPrintable(host));
        EXPECT_TRUE(isOwnHost(host, u"10.1.2.3"_s));
    }
}

TEST(OwnHost, IsNoOtherName)
{
    for (const QString &host : {u""_s, u"evil.example"_s, u"evil.example:80"_s,
             u"localhost.evil.example"_s, u"127.0.0.1.evil.example"_s, u"10.1.2.4"_s}) {
        SCOPED_TRACE(qPrintable(host));
        EXPECT_FALSE(isOwnHost(host, u"10.1.2.3"_s));
    }
}

TEST(OwnOrigin, IsAbsentOrTheHostItself)
{
    HttpRequest request;
    request.host = u"127.0.0.1:80"_s;
    EXPECT_TRUE(isOwnOrigin(request));
    request.origin = u"http://127.0.0.1:80"_s;
    EXPECT_TRUE(isOwnOrigin(request));
    request.origin = u"http://evil.example"_s;
    EXPECT_FALSE(isOwnOrigin(request));
    request.origin = u"null"_s;
    EXPECT_FALSE(isOwnOrigin(request));
}

TEST(ListenAddress, IsReadWithItsPort)
{
    EXPECT_EQ(ListenAddress::parse(u"127.0.0.1:8080"_s).port, 8080);
    EXPECT_EQ(ListenAddress::parse(u"[::1]:0"_s).host, u"::1");
    EXPECT_EQ(ListenAddress::parse(u"localhost:1"_s).host, u"localhost");
}

TEST(ListenAddress, IsRefusedWithoutOne)
{
    for (const QString &text : {u""_s, u"8080"_s, u":8080"_s, u"127.0.0.1"_s, u"127.0.0.1:"_s,
             u"127.0.0.1:x"_s, u"127.0.0.1:65536"_s, u"127.0.0.1:-1"_s}) {
        SCOPED_TRACE(qPrintable(text));
        EXPECT_THROW(ListenAddress::parse(text), ServerError);
    }
}

} // namespace
} // namespace emulator
