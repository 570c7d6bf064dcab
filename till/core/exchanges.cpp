#include "till/core/exchanges.h"

#include "host/net/restclient.h"

#include <utility>

namespace till {

namespace {

class WatchedRestClient : public RestClient
{
public:
    WatchedRestClient(const std::function<void()> &onPost, int &count, bool &succeeded)
        : m_onPost(onPost)
        , m_count(count)
        , m_succeeded(succeeded)
    { }

    void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers) override
    {
        ++m_count;
        if (m_onPost)
            m_onPost();
        RestClient::post(url, body, headers);
        m_succeeded = errorCode() == None;
    }

private:
    const std::function<void()> &m_onPost;
    int &m_count;
    bool &m_succeeded;
};

} // namespace

Exchanges::Exchanges(std::function<void()> onPost)
    : m_onPost(std::move(onPost))
{
    MockFactory<RestClient>::setCreator([this]() -> QSharedPointer<RestClient> {
        return QSharedPointer<WatchedRestClient>::create(m_onPost, m_count, m_lastSucceeded);
    });
}

Exchanges::~Exchanges()
{
    MockFactory<RestClient>::setCreator({});
}

} // namespace till
