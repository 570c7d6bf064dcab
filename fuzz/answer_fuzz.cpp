// Any bytes as the service's answer: the guard, the parser and each reader must survive them, and
// the quick reader must read what the obvious one reads.

#include "fuzz/measure.h"

#include "client/answerguard.h"
#include "client/interface.h"
#include "common/exceptions.h"
#include "common/host/services.h"
#include "tests/client/literalreader.h"
#include "tests/client/valuetext.h"
#include "till/core/loyaltyverdict.h"

#include <QDomDocument>

using namespace Qt::Literals::StringLiterals;

namespace {

using Client = korvelLoyaltyOnline::Interface;
using Values = QMap<QString, QVariant>;

/// The checks end in an exception where the service refuses.
template <typename Check> void checked(const Check &check)
{
    try {
        check();
    } catch (const KorvelException &) {
        // Refused, as it may be.
    }
}

void readCard(const Client &client, const QDomDocument &answer)
{
    checked([&] { client.checkResponse(answer); });
    checked([&] { client.checkCardStatus(answer); });
    const auto card = QSharedPointer<DocumentCardRecord>::create(QSharedPointer<Card>::create());
    client.fillClient(answer, card);
    client.getCardType(answer);
}

void readCheque(const Client &client, const QDomDocument &answer)
{
    const QString delimiter = u"\u2013\u2013"_s;
    Values result;
    client.fillRequestResult(answer, result);
    fuzz::require(valueText(result) == valueText(literallyRead(answer, delimiter)),
        "a cheque is read as the rules say");
    fuzz::require(valueText(client.createCouponsToPrint(answer))
            == valueText(literallyReadCoupons(answer, delimiter)),
        "coupons are read as the rules say");
}

void readAttributes(const Client &client, const QDomDocument &answer)
{
    fuzz::require(valueText(client.createExtendedAttributes(answer))
            == valueText(literallyReadAttributes(answer)),
        "attributes of a cheque are read as the rules say");
    const QDomElement root = answer.documentElement();
    fuzz::require(valueText(client.createExtendedAttributes(root))
            == valueText(literallyReadAttributes(root)),
        "attributes of an element are read as the rules say");
}

bool readAnswer(const QByteArray &input)
{
    static const Client client;
    (void)till::judgeLoyaltyAnswer(RestClient::None, input, {});
    QDomDocument answer;
    if (korvelLoyaltyOnline::findDefect(input) || !answer.setContent(input))
        return false;
    readCard(client, answer);
    readCheque(client, answer);
    readAttributes(client, answer);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::measure(data, size, readAnswer);
}
