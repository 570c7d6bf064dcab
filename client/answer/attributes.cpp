#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"

namespace korvelLoyaltyOnline {

QMap<QString, QVariant> Interface::createExtendedAttributes(const QDomDocument &response) const
{
    // Direct children only: attributes further down belong to positions.
    QMap<QString, QVariant> attributes;
    const QDomElement cheque = response.elementsByTagName(wire::chequeResponse).at(0).toElement();
    for (QDomElement child = cheque.firstChildElement(wire::extendedAttribute); !child.isNull();
         child = child.nextSiblingElement(wire::extendedAttribute))
        fillExtendedAttribute(child, attributes);
    return attributes;
}

QMap<QString, QVariant> Interface::createExtendedAttributes(const QDomElement &element) const
{
    QMap<QString, QVariant> attributes;
    const QDomNodeList found = element.elementsByTagName(wire::extendedAttribute);
    for (int i = 0; i < found.size(); ++i)
        fillExtendedAttribute(found.at(i).toElement(), attributes);
    return attributes;
}

void Interface::fillExtendedAttribute(
    const QDomElement &attribute, QMap<QString, QVariant> &attributes) const
{
    attributes.insert(xmlutils::getValueByTag(attribute, wire::key, 0),
        xmlutils::getValueByTag(attribute, wire::value, 0));
}

} // namespace korvelLoyaltyOnline
