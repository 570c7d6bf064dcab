#include "till/accept/service.h"

#include "host/net/restclient.h"
#include "till/accept/access.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace till::accept {

namespace {

const QString wrongPassword = u"wrong on purpose"_s;

} // namespace

Service::Service(Access access)
    : m_access(std::move(access))
{ }

Answer Service::ask(const QByteArray &request, Credentials credentials) const
{
    QHash<QString, QString> headers{{u"Content-Type"_s, u"text/xml; charset=UTF-8"_s}};
    if (credentials == Credentials::Wrong)
        headers.insert(u"Authorization"_s, basicAuthorization(m_access.user, wrongPassword));
    else if (!m_access.authorization.isEmpty())
        headers.insert(u"Authorization"_s, m_access.authorization);
    const auto client = MockFactory<RestClient>::create();
    client->setTimeout(m_access.timeoutSeconds);
    client->post(m_access.url, request, headers);
    Answer answer;
    answer.error = client->errorCode();
    answer.errorText = client->errorMessage().ui();
    answer.body = answer.error == RestClient::None ? client->responseBody() : client->failedBody();
    readBody(answer);
    return answer;
}

} // namespace till::accept
