#include "till/queue/output.h"

#include "till/queue/deliverytext.h"
#include "till/queue/messagetext.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace till {

void print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
    std::fflush(stdout);
}

void print(const Json &object)
{
    print(QString::fromStdString(object.dump()) + u'\n');
}

void complain(const QString &line)
{
    const QString whole = u"korvel-till: "_s + printable(line) + u'\n';
    std::fputs(whole.toUtf8().constData(), stderr);
}

void tellDelivery(const DeliveryReport &report, int waiting, bool json)
{
    if (json)
        print(deliveryObject(report, waiting));
    else
        print(deliveryText(report, waiting) + u'\n');
    for (const QString &line : deliveryAdvice(report))
        complain(line);
}

} // namespace till
