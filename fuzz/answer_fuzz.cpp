// Any bytes as the service's answer: the guard, the parser and the readers must survive them.

#include "client/answerguard.h"
#include "client/interface.h"

#include <QByteArray>
#include <QDomDocument>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const korvelLoyaltyOnline::Interface client;
    const QByteArray answer(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    QDomDocument response;
    if (korvelLoyaltyOnline::findDefect(answer) || !response.setContent(answer))
        return 0;
    QMap<QString, QVariant> result;
    client.fillRequestResult(response, result);
    client.getCardType(response);
    return 0;
}
