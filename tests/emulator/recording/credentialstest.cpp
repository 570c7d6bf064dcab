#include "emulator/recording/credentials.h"

#include <gtest/gtest.h>

namespace emulator {
namespace {

using Headers = std::map<QByteArray, QByteArray>;

TEST(CredentialsTest, AreNotAmongTheHeadersThatAreKept)
{
    HttpRequest request;
    for (const char *name : {"Authorization", "Proxy-Authorization", "COOKIE", "X-Korvel-Token",
             "Client-Secret", "X-Password", "X-Api-Key", "Host"})
        request.headers.emplace_back(name, "value");
    EXPECT_EQ(headersWithoutCredentials(request), (Headers{{"Host", "value"}}));
}

TEST(CredentialsTest, HeadersOfOneNameAreJoined)
{
    HttpRequest request;
    request.headers = {{"Via", "a"}, {"Accept", "x"}, {"Via", "b"}};
    EXPECT_EQ(headersWithoutCredentials(request), (Headers{{"Accept", "x"}, {"Via", "a, b"}}));
}

TEST(CredentialsTest, AreWhatFollowsTheScheme)
{
    EXPECT_EQ(credentialsOf("Basic QUJD"), "QUJD");
    EXPECT_EQ(credentialsOf("Bearer  a b "), "a b");
    EXPECT_EQ(credentialsOf("QUJD"), "QUJD");
    EXPECT_EQ(credentialsOf(""), "");
}

TEST(CredentialsTest, AreCrossedOut)
{
    EXPECT_EQ(withoutCredentials("you sent Basic QUJD, QUJD!", "QUJD"),
        "you sent Basic (credentials), (credentials)!");
    EXPECT_EQ(withoutCredentials("text", ""), "text");
}

} // namespace
} // namespace emulator
