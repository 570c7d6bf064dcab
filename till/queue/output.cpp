#include "till/queue/output.h"

#include "host/text/plaintext.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace till {

void print(const QString &text)
{
    static_cast<void>(std::fputs(text.toUtf8().constData(), stdout));
    static_cast<void>(std::fflush(stdout));
}

QString jsonText(const Json &object)
{
    return QString::fromUtf8(plaintext::json(QByteArray::fromStdString(object.dump())));
}

void print(const Json &object)
{
    print(jsonText(object) + u'\n');
}

void complain(const QString &line)
{
    const QString whole = u"korvel-till: "_s + plaintext::line(line) + u'\n';
    static_cast<void>(std::fputs(whole.toUtf8().constData(), stderr));
}

void tellDelivery(const DeliveryReport &report, const DeliveryRest &rest, bool json)
{
    if (json)
        print(deliveryObject(report, rest));
    else
        print(deliveryText(report, rest) + u'\n');
    adviseOnDelivery(report, rest);
}

void adviseOnDelivery(const DeliveryReport &report, const DeliveryRest &rest)
{
    for (const QString &line : deliveryAdvice(report, rest))
        complain(line);
}

} // namespace till
