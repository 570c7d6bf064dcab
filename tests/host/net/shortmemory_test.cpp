// Memory that is too short for a header of a request.

#include "tests/host/net/restclientfixture.h"

#include <dlfcn.h>

using namespace Qt::Literals::StringLiterals;

struct curl_slist;

namespace {

int headersWithMemory = -1; // how many more there is memory for; below 0: for all

} // namespace

// Takes the place of libcurl's own.
extern "C" curl_slist *curl_slist_append(curl_slist *list, const char *text)
{
    using Append = curl_slist *(curl_slist *, const char *);
    static auto *const original
        = reinterpret_cast<Append *>(::dlsym(RTLD_NEXT, "curl_slist_append"));
    if (headersWithMemory == 0)
        return nullptr;
    if (headersWithMemory > 0)
        --headersWithMemory;
    return original(list, text);
}

namespace {

class ShortMemoryTest : public RestClientFixture
{
protected:
    ~ShortMemoryTest() override { headersWithMemory = -1; }
};

TEST_F(ShortMemoryTest, NothingIsSentWithoutOneOfItsHeaders)
{
    m_server.answer("ok");
    for (int enough = 0; enough < 2; ++enough) {
        headersWithMemory = enough;
        whenPosted(m_server.url(), "body", {{u"A"_s, u"1"_s}, {u"B"_s, u"2"_s}});
        EXPECT_EQ(m_client->errorCode(), RestClient::ExchangeFailed) << enough;
    }
    EXPECT_TRUE(m_server.requests().isEmpty());
}

} // namespace
