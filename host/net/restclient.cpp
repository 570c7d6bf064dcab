#include "host/net/restclient.h"

template class MockFactory<RestClient>;

RestClient::RestClient() = default;
RestClient::~RestClient() = default;

void RestClient::setTimeout(int seconds)
{
    m_timeoutSeconds = seconds;
}

void RestClient::setLogger(const Log4Qt::Logger *logger)
{
    m_logger = logger;
}

void RestClient::post(const QUrl &, const QByteArray &, const QHash<QString, QString> &)
{
    m_errorCode = ExchangeFailed;
}

int RestClient::errorCode() const
{
    return m_errorCode;
}

tr::Tr RestClient::errorMessage() const
{
    return m_errorMessage;
}

QByteArray RestClient::responseBody() const
{
    return m_responseBody;
}
