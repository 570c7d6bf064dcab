#include "client/interface.h"
#include "client/names.h"
#include "client/request/configuredattributes.h"
#include "client/request/masks.h"
#include "common/host/services.h"
#include "common/names.h"
#include <log4qt/logger.h>

namespace korvelLoyaltyOnline {

using namespace Qt::Literals::StringLiterals;
using xmlutils::createTextElement;

namespace {

using Attributes = QMap<QString, QString>;

const QString extendedOptionsKey = u"extendedoptions"_s;
constexpr char16_t optionsSeparator = u',';

/// What the masks of a position are filled from: its index prices, known by their codes, then the
/// position itself. Owned by the position and its article.
QList<QObject *> maskObjects(const QSharedPointer<GoodsItem> &position)
{
    QList<QObject *> objects;
    const auto article = position->getTmc();
    const auto prices
        = article ? article->getIndexPrices() : QList<QSharedPointer<TmcIndexPrice>>();
    for (const auto &price : prices) {
        price->setObjectName(u"indexPrice%1"_s.arg(price->getCode()));
        objects.append(price.data());
    }
    objects.append(position.data());
    return objects;
}

/// The usable pairs of a section, their masks filled.
Attributes filledAttributes(
    const ConfiguredSection &section, const QList<QObject *> &objects, const Log4Qt::Logger &logger)
{
    Attributes attributes;
    for (const ConfiguredAttribute &attribute : section.attributes) {
        const QString value = expandMask(attribute.mask, objects);
        if (attribute.name.isEmpty() || value.isEmpty())
            logger.debug(u"Некорректное значение настройки атрибута %1:%2"_s.arg(
                section.name, attribute.key));
        else
            attributes.insert(attribute.name, value);
    }
    return attributes;
}

} // namespace

QList<QDomElement> Interface::formExtendedAttributes(const QMap<QString, QVariant> &data,
    QDomDocument &request, const QSharedPointer<GoodsItem> &position) const
{
    return position ? formPositionAttributes(data, request, position, configuredSections())
                    : formStoredAttributes(data, request);
}

QList<QDomElement> Interface::formPositionAttributes(const QMap<QString, QVariant> &data,
    QDomDocument &request, const QSharedPointer<GoodsItem> &position,
    const QList<ConfiguredSection> &sections) const
{
    QList<QDomElement> stored = formStoredAttributes(data, request);
    // What the service returned wins over the configuration, which is for positions only.
    if (!stored.isEmpty())
        return stored;
    return formConfiguredAttributes(position, request, sections)
        + formOptionAttributes(*position, request);
}

QList<QDomElement> Interface::formStoredAttributes(
    const QMap<QString, QVariant> &data, QDomDocument &request) const
{
    const auto stored = data.value(korvel::result::extendedAttributes).toMap();
    QList<QDomElement> elements;
    for (auto pair = stored.cbegin(); pair != stored.cend(); ++pair)
        elements.append(formExtendedAttribute(request, {{pair.key(), pair.value().toString()}}));
    return elements;
}

QList<QDomElement> Interface::formConfiguredAttributes(const QSharedPointer<GoodsItem> &position,
    QDomDocument &request, const QList<ConfiguredSection> &sections) const
{
    if (sections.isEmpty())
        return {};
    const QList<QObject *> objects = maskObjects(position);
    QList<QDomElement> elements;
    for (const ConfiguredSection &section : sections) {
        const Attributes attributes = filledAttributes(section, objects, *m_logger);
        if (attributes.isEmpty())
            m_logger->debug(u"Все настройки в секции %1 некорректные"_s.arg(section.name));
        else
            elements.append(formExtendedAttribute(request, attributes));
    }
    return elements;
}

QList<QDomElement> Interface::formOptionAttributes(
    const GoodsItem &position, QDomDocument &request) const
{
    const QString options = position.getExtendedOptions();
    if (!m_sendAdditionalBarcodeMarkdown || options.isEmpty())
        return {};
    QList<QDomElement> elements;
    const QStringList pieces = options.split(optionsSeparator);
    for (const QString &piece : pieces)
        elements.append(formExtendedAttribute(request, {{extendedOptionsKey, piece}}));
    return elements;
}

QDomElement Interface::formExtendedAttribute(
    QDomDocument &request, const QMap<QString, QString> &attributes) const
{
    QDomElement element = request.createElement(wire::extendedAttribute);
    for (auto pair = attributes.cbegin(); pair != attributes.cend(); ++pair) {
        element.appendChild(createTextElement(request, wire::key, pair.key()));
        element.appendChild(createTextElement(request, wire::value, pair.value()));
    }
    return element;
}

} // namespace korvelLoyaltyOnline
