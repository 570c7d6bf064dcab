#include "host/storage/positionjson.h"

#include "host/storage/variantjson.h"

#include <QJsonArray>

using namespace Qt::Literals::StringLiterals;
using variantjson::fromDouble;

namespace positionjson {

namespace {

QJsonValue writeRecord(const QSharedPointer<Tmc> &tmc)
{
    if (!tmc)
        return {};
    QJsonArray prices;
    const auto indexPrices = tmc->getIndexPrices();
    for (const auto &indexPrice : indexPrices)
        prices.append(QJsonObject{
            {u"code"_s, indexPrice->getCode()}, {u"price"_s, fromDouble(indexPrice->getPrice())}});
    return QJsonObject{{u"indexPrices"_s, prices}};
}

QSharedPointer<Tmc> readRecord(const JsonField &field)
{
    if (field.isNull())
        return {};
    QList<QSharedPointer<TmcIndexPrice>> prices;
    for (const JsonField &price : field.at(u"indexPrices"_s).items())
        prices.append(QSharedPointer<TmcIndexPrice>::create(
            price.at(u"code"_s).integer(), price.at(u"price"_s).number()));
    return QSharedPointer<Tmc>::create(prices);
}

TmcUnit readUnit(const JsonField &field)
{
    return TmcUnit(field.at(u"name"_s).text(), field.at(u"fractional"_s).flag());
}

QJsonObject writeArticle(const GoodsItem &position)
{
    return {
        {u"code"_s, position.getCode()},
        {u"barcode"_s, position.getBarcode()},
        {u"name"_s, position.getName()},
        {u"unit"_s,
            QJsonObject{{u"name"_s, position.getUnitName()},
                {u"fractional"_s, position.getTmcUnit().isFractional()}}},
        {u"record"_s, writeRecord(position.getTmc())},
        {u"minRetailPrice"_s, fromDouble(position.getMinRetailPrice())},
        {u"extendedOptions"_s, position.getExtendedOptions()},
    };
}

void readArticle(const JsonField &field, GoodsItem &position)
{
    position.setCode(field.at(u"code"_s).text());
    position.setBarcode(field.at(u"barcode"_s).text());
    position.setName(field.at(u"name"_s).text());
    position.setTmcUnit(readUnit(field.at(u"unit"_s)));
    position.setTmc(readRecord(field.at(u"record"_s)));
    position.setMinRetailPrice(field.at(u"minRetailPrice"_s).number());
    position.setExtendedOptions(field.at(u"extendedOptions"_s).text());
}

QJsonObject writeSums(const GoodsItem &position)
{
    return {
        {u"price"_s, fromDouble(position.getPrice())},
        {u"quantity"_s, fromDouble(position.getBquant())},
        {u"before"_s, fromDouble(position.getSumn())},
        {u"after"_s, fromDouble(position.getSumb())},
        {u"appliedDiscount"_s, fromDouble(position.getAppliedDiscount())},
        {u"appliedPoints"_s, fromDouble(position.getAppliedPoints())},
        {u"appliedQuantity"_s, fromDouble(position.getAppliedQuantity())},
    };
}

void readSums(const JsonField &field, GoodsItem &position)
{
    position.setPrice(field.at(u"price"_s).number());
    position.setBquant(field.at(u"quantity"_s).number());
    position.setSumn(field.at(u"before"_s).number());
    position.setSumb(field.at(u"after"_s).number());
    position.setAppliedDiscount(field.at(u"appliedDiscount"_s).number());
    position.setAppliedPoints(field.at(u"appliedPoints"_s).number());
    position.setAppliedQuantity(field.at(u"appliedQuantity"_s).number());
}

} // namespace

QJsonObject write(const GoodsItem &position)
{
    return {
        {u"number"_s, position.getPosnum()},
        {u"objectName"_s, position.objectName()},
        {u"article"_s, writeArticle(position)},
        {u"sums"_s, writeSums(position)},
        {u"uniteAvailable"_s, position.isUniteAvailable()},
        {u"recalcable"_s, position.isRecalcable()},
    };
}

QSharedPointer<GoodsItem> read(const JsonField &field)
{
    auto position = QSharedPointer<GoodsItem>::create();
    position->setPosnum(field.at(u"number"_s).integer());
    position->setObjectName(field.at(u"objectName"_s).text());
    readArticle(field.at(u"article"_s), *position);
    readSums(field.at(u"sums"_s), *position);
    position->setUniteAvailableProp(field.at(u"uniteAvailable"_s).flag());
    position->setRecalcable(field.at(u"recalcable"_s).flag());
    return position;
}

} // namespace positionjson
