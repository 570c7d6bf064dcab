#include "till/wire/balancerequest.h"

#include "host/config/config.h"
#include "host/framework/currenttime.h"
#include "host/text/simpleformatter.h"

#include <QDomDocument>
#include <QFile>

using namespace Qt::StringLiterals;

namespace till {

namespace {

const QString sample = u":/korvel/protocol/samples/balance-request.xml"_s;

QString nameOf(const QString &key)
{
    return u"KorvelLoyaltyOnline:"_s + key;
}

QString setting(const QString &key)
{
    return Singleton<Config>::instance()->getString(nameOf(key), {});
}

QString filled(const QString &mask, const QList<QObject *> &objects)
{
    QMap<QString, QString> resolved;
    return MockFactory<SimpleFormatter>::create()->format(
        mask, objects, SimpleFormatter::plain, resolved);
}

void setText(QDomDocument &request, const QString &element, const QString &text)
{
    QDomElement found = request.elementsByTagName(element).at(0).toElement();
    while (!found.firstChild().isNull())
        found.removeChild(found.firstChild());
    found.appendChild(request.createTextNode(text));
}

QDomDocument readSample()
{
    QFile file(sample);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("the sample of a request is missing in the program");
    return document;
}

} // namespace

QByteArray balanceRequest(const QString &card, const QList<QObject *> &objects)
{
    const QDateTime now = MockFactory<CurrentTime>::create()->currentDateTime();
    QDomDocument request = readSample();
    setText(request, u"orgName"_s, setting(u"orgName"_s));
    setText(request, u"CardNumber"_s, card);
    setText(request, u"DateTime"_s, now.toString(u"yyyy-MM-ddThh:mm:ss"_s));
    setText(request, u"POS"_s, filled(setting(u"pos"_s), objects));
    setText(request, u"Organization"_s, setting(u"organization"_s));
    setText(request, u"BusinessUnit"_s, filled(setting(u"businessUnit"_s), objects));
    return request.toByteArray(1);
}

} // namespace till
