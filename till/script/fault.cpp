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
        throw CannotDo(
            {u"scriptNoServiceApi"_s, u"некому передать сбой: не задано Till:serviceApi"_s},
            {u"scriptNoServiceApiRemedy"_s,
                u"укажите там API korvel-service, например http://127.0.0.1:8080/api"_s});

    // Not by the factory's client: this is no exchange of the till with the loyalty service.
    RestClient client;
    client.post(QUrl(api + u"/faults"), words.toUtf8(),
        {{u"Content-Type"_s, u"text/plain; charset=utf-8"_s}});
    if (client.errorCode() != RestClient::None)
        throw CannotDo(tr::Tr(u"scriptFaultNotTaken"_s, u"%1/faults не принял сбой «%2»: %3"_s)
                           .arg(api)
                           .arg(words)
                           .arg(client.errorMessage()),
            {u"scriptFaultNotTakenRemedy"_s, u"посмотрите, какие сбои знает korvel-service"_s});
}

} // namespace till
