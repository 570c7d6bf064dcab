#include "emulator/recording/upstreamaddress.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace emulator {
namespace {

struct JoinCase
{
    const char *upstream;
    const char *target;
    const char *url;
};

class UpstreamUrlTest : public testing::TestWithParam<JoinCase>
{ };

TEST_P(UpstreamUrlTest, PathAndQueryAreAppended)
{
    const auto address = UpstreamAddress::parse(QString::fromUtf8(GetParam().upstream));
    EXPECT_EQ(address.urlFor(QString::fromUtf8(GetParam().target)), GetParam().url);
}

INSTANTIATE_TEST_SUITE_P(Joins, UpstreamUrlTest,
    testing::Values(JoinCase{"http://h", "/", "http://h/"}, JoinCase{"http://h/", "/", "http://h/"},
        JoinCase{"https://h:8443/soap", "/", "https://h:8443/soap"},
        JoinCase{"http://h/soap/", "/", "http://h/soap/"},
        JoinCase{"http://h/soap", "/a/b", "http://h/soap/a/b"},
        JoinCase{"http://h/soap/", "/a/", "http://h/soap/a/"},
        JoinCase{"http://h/s?x=1", "/", "http://h/s?x=1"},
        JoinCase{"http://h/s?x=1", "/a?y=2", "http://h/s/a?x=1&y=2"},
        JoinCase{"http://h/s", "/?y=%20?&z", "http://h/s?y=%20?&z"},
        JoinCase{"http://h/a%20b", "/%2e", "http://h/a%20b/%2e"},
        JoinCase{"http://u:p@h/s", "/", "http://h/s"}));

TEST(UpstreamAddressTest, KeepsUserAndPasswordApart)
{
    EXPECT_EQ(
        UpstreamAddress::parse(QStringLiteral("http://till:p%40ss:w%C3%A4@h")).authorization(),
        "Basic " + QByteArray("till:p@ss:w\xc3\xa4").toBase64());
    EXPECT_EQ(UpstreamAddress::parse(QStringLiteral("http://h")).authorization(), "");
}

class WrongUpstreamTest : public testing::TestWithParam<const char *>
{ };

TEST_P(WrongUpstreamTest, IsRefusedWithoutSayingItsPassword)
{
    try {
        UpstreamAddress::parse(QString::fromUtf8(GetParam()));
        FAIL() << "it was taken";
    } catch (const UpstreamError &error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("--upstream"));
        EXPECT_THAT(error.what(), testing::Not(testing::HasSubstr("hush")));
    }
}

INSTANTIATE_TEST_SUITE_P(Urls, WrongUpstreamTest,
    testing::Values("", "h:80", "ftp://u:hush@h/", "file:///x", "http://", "http:///path",
        "http://u:hush@h/#part", "http://u:hush@h:port/"));

} // namespace
} // namespace emulator
