#include "till/explain/servicebalance.h"

#include "host/config/config.h"
#include "host/framework/currenttime.h"
#include "host/net/restclient.h"
#include "till/explain/exchangetexts.h"
#include "till/queue/credentials.h"
#include "till/wire/balancerequest.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace till::explain {

namespace {

constexpr int usualTimeout = 15;

QString url()
{
    return Singleton<Config>::instance()->getString(u"KorvelLoyaltyOnline:url"_s, {});
}

facts::JournalledExchange exchangeOf(const QString &card, const RestClient &client)
{
    facts::JournalledExchange exchange;
    exchange.operation = ServiceOperation::Balance;
    exchange.card = card;
    if (client.errorCode() != RestClient::None) {
        exchange.reason = client.errorMessage();
        return exchange;
    }
    exchange.answer = answerFacts(client.responseBody());
    exchange.reason = tr::Tr(tr::undefined, exchange.answer.message);
    exchange.isForeign = !exchange.answer.returnCode;
    if (exchange.answer.returnCode)
        exchange.ending
            = *exchange.answer.returnCode <= 0 ? facts::Ending::Agreed : facts::Ending::Refused;
    return exchange;
}

} // namespace

bool isServiceConfigured()
{
    return !url().isEmpty();
}

Step askForBalance(const QString &card, AbstractDocument *document)
{
    const QList<QObject *> objects = document ? QList<QObject *>{document} : QList<QObject *>();
    const auto client = MockFactory<RestClient>::create();
    client->setTimeout(
        Singleton<Config>::instance()->getInt(u"KorvelLoyaltyOnline:timeout"_s, usualTimeout));
    client->post(QUrl(url()), balanceRequest(card, objects),
        {{u"Content-Type"_s, u"text/xml; charset=UTF-8"_s},
            {u"Authorization"_s, configuredAuthorization()}});
    const auto exchange = exchangeOf(card, *client);
    Step step{MockFactory<CurrentTime>::create()->currentDateTime(), Source::Service,
        exchangeWord(exchange), exchangeText(exchange), {}};
    if (exchange.ending == facts::Ending::Agreed) {
        step.text = {u"explainBalanceNow"_s, u"Система лояльности сейчас"_s};
        step.amounts.balance = exchange.answer.balance;
    }
    return step;
}

} // namespace till::explain
