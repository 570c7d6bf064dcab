#include "till/check/balancerequest.h"

#include "host/documents/catalogue.h"
#include "till/wire/balancerequest.h"

#include <QObject>

using namespace Qt::StringLiterals;

namespace till::check {

namespace {

TillPlace placeOfCatalogue(const QString &path)
{
    try {
        return path.isEmpty() ? TillPlace() : Catalogue::load(path).place();
    } catch (const CatalogueError &) {
        return {}; // was told with the machine
    }
}

/// Shop and number of the till: those of the settings before those of the catalogue.
TillPlace placeOfTill(const Effective &effective)
{
    TillPlace place = placeOfCatalogue(effective.path(u"Till:catalogue"_s));
    if (effective.isSet(u"Till:shop"_s))
        place.shop = effective.text(u"Till:shop"_s);
    if (effective.isSet(u"Till:number"_s))
        place.number = effective.text(u"Till:number"_s);
    return place;
}

} // namespace

QByteArray balanceRequest(const Effective &effective, const QString &card)
{
    const TillPlace place = placeOfTill(effective);
    QObject document;
    document.setObjectName(u"document"_s);
    document.setProperty("shop", place.shop);
    document.setProperty("till", place.number);
    return till::balanceRequest(card, {&document});
}

QByteArray emptyRequest()
{
    return "<?xml version='1.0' encoding='utf-8'?>\n"
           "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\">"
           "<soap:Body/></soap:Envelope>\n";
}

} // namespace till::check
