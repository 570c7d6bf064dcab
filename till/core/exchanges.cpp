#include "till/core/exchanges.h"

#include "host/framework/currenttime.h"
#include "host/net/restclient.h"
#include "till/core/exchangejournal.h"

#include <QElapsedTimer>

#include <utility>

namespace till {

class Exchanges::WatchedClient : public RestClient
{
public:
    explicit WatchedClient(Exchanges &exchanges)
        : m_exchanges(exchanges)
    { }

    void post(
        const QUrl &url, const QByteArray &body, const QHash<QString, QString> &headers) override
    {
        ++m_exchanges.m_count;
        if (m_exchanges.m_onPost)
            m_exchanges.m_onPost();
        const QDateTime begun = MockFactory<CurrentTime>::create()->currentDateTime();
        QElapsedTimer timer;
        timer.start();
        RestClient::post(url, body, headers);
        m_exchanges.m_lastSucceeded = errorCode() == None;
        m_exchanges.m_log.add({begun, std::chrono::milliseconds(timer.elapsed()), body,
            errorCode() == None ? responseBody() : failedBody(), errorCode(), errorMessage()});
        journalExchange(m_exchanges.m_log.records().constLast());
    }

private:
    Exchanges &m_exchanges;
};

Exchanges::Exchanges(std::function<void()> onPost)
    : m_onPost(std::move(onPost))
{
    MockFactory<RestClient>::setCreator([this]() -> QSharedPointer<RestClient> {
        return QSharedPointer<WatchedClient>::create(*this);
    });
}

Exchanges::~Exchanges()
{
    MockFactory<RestClient>::setCreator({});
}

} // namespace till
