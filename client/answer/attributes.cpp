#include "client/answer/answerindex.h"
#include "client/interface.h"
#include "client/names.h"
#include "common/host/services.h"

namespace korvelLoyaltyOnline {

QMap<QString, QVariant> Interface::createExtendedAttributes(const QDomDocument &response) const
{
    return readAttributes(AnswerIndex(response).chequeAttributes());
}

QMap<QString, QVariant> Interface::createExtendedAttributes(const QDomElement &element) const
{
    const AnswerIndex index(element);
    return readAttributes(index.attributes(index.whole()));
}

QMap<QString, QVariant> Interface::readAttributes(const std::vector<QDomElement> &elements) const
{
    QMap<QString, QVariant> attributes;
    for (const QDomElement &element : elements)
        fillExtendedAttribute(element, attributes);
    return attributes;
}

void Interface::fillExtendedAttribute(
    const QDomElement &attribute, QMap<QString, QVariant> &attributes) const
{
    attributes.insert(xmlutils::getValueByTag(attribute, wire::key, 0),
        xmlutils::getValueByTag(attribute, wire::value, 0));
}

} // namespace korvelLoyaltyOnline
