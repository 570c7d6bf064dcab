#include "till/script/fault.h"

#include "host/config/config.h"
#include "host/net/restclient.h"
#include "till/core/cannotdo.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace till {

void sendFault(const QString &words)
{
    const QString api = Singleton<Config>::instance()->getString(u"Till:serviceApi"_s, {});
    if (api.isEmpty())
        throw CannotDo(u"no service takes faults: Till:serviceApi is not set"_s,
            u"set it to the API of korvel-service, such as http://127.0.0.1:8080/api"_s);

    // Not by the factory's client: this is no exchange of the till with the loyalty service.
    RestClient client;
    client.post(QUrl(api + u"/faults"), words.toUtf8(),
        {{u"Content-Type"_s, u"text/plain; charset=utf-8"_s}});
    if (client.errorCode() != RestClient::None)
        throw CannotDo(u"%1/faults did not take the fault \"%2\": %3"_s.arg(
                           api, words, client.errorMessage().ru()),
            u"look at the faults that korvel-service knows"_s);
}

} // namespace till
