#include "client/amounts.h"
#include "client/interface.h"
#include "client/names.h"
#include "client/request/configuredattributes.h"
#include "common/host/documents.h"
#include "common/host/services.h"
#include "common/names.h"

namespace korvelLoyaltyOnline {

using xmlutils::createTextElement;

namespace {

using PositionData = QMap<QString, QVariant>;

/// Figures that the service gave for the positions before, by position number.
PositionData storedPositions(const AbstractDocument &document)
{
    return document.getStoredValue(korvel::group, korvel::plugindata::positionsData, {}).toMap();
}

/// The service's own figure where there is one, so that a repeated request confirms it to the
/// kopeck; a stored value that is no number counts as 0.
double storedOr(double hostFigure, const PositionData &data, const QString &name)
{
    return data.contains(name) ? data.value(name).toDouble() : hostFigure;
}

bool isMarkdown(const GoodsItem &position)
{
    return position.getExtendedOptions().contains(korvel::markdownMarker, Qt::CaseInsensitive);
}

/// 0 when there is none, or none was asked for (negative index).
double indexPrice(const GoodsItem &position, int index)
{
    const auto article = position.getTmc();
    return index >= 0 && article && article->hasIndexPrice(index)
        ? article->getIndexPrice(index)->getPrice()
        : 0.0;
}

} // namespace

double Interface::calculateDiscount(double sumBefore, double sumAfter) const
{
    constexpr double whole = 100.0;
    return money::equal(sumBefore, sumAfter) ? 0.0 : whole - sumAfter * whole / sumBefore;
}

double Interface::minimumPrice(const GoodsItem &position) const
{
    return money::counts(m_minRetailPriceForMarkdownPositions) && isMarkdown(position)
        ? position.getMinRetailPrice()
        : indexPrice(position, m_indexForMinRetailPrice);
}

QDomElement Interface::formItem(const QSharedPointer<GoodsItem> &position,
    const QMap<QString, QVariant> &data, QDomDocument &request,
    const QList<ConfiguredSection> &sections) const
{
    QDomElement item = request.createElement(wire::item);
    const auto append = [&](const QString &tag, const QString &text) {
        item.appendChild(createTextElement(request, tag, text));
    };
    const double sumBefore = position->getSumn();
    const double sumAfter = position->getSumb();
    append(wire::positionNumber, QString::number(position->getPosnum()));
    append(wire::article, position->getCode());
    append(wire::price, amountText(position->getPrice()));
    append(wire::quantity, quantityText(position->getBquant()));
    using namespace korvel;
    append(result::summ, amountText(storedOr(sumBefore, data, result::summ)));
    append(result::discount,
        amountText(storedOr(calculateDiscount(sumBefore, sumAfter), data, result::discount)));
    append(result::summDiscounted, amountText(storedOr(sumAfter, data, result::summDiscounted)));
    append(wire::minimumPrice, amountText(minimumPrice(*position)));
    const auto attributes = formPositionAttributes(data, request, position, sections);
    for (const QDomElement &attribute : attributes)
        item.appendChild(attribute);
    return item;
}

QList<QDomElement> Interface::formItems(
    const QSharedPointer<AbstractDocument> &document, QDomDocument &request) const
{
    const PositionData stored = storedPositions(*document);
    const QList<ConfiguredSection> sections = configuredSections();
    QList<QDomElement> items;
    const auto positions = document->getGoods();
    for (const auto &position : positions) {
        const QString key = QString::number(position->getPosnum());
        items.append(formItem(position, stored.value(key).toMap(), request, sections));
    }
    return items;
}

} // namespace korvelLoyaltyOnline
