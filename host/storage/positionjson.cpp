#include "host/storage/positionjson.h"

using namespace Qt::Literals::StringLiterals;

namespace positionjson {

namespace {

void writeRecord(JsonWriter &json, const QSharedPointer<Tmc> &tmc)
{
    if (!tmc)
        return json.null();
    json.beginObject();
    json.key("indexPrices"_L1);
    json.beginArray();
    const auto indexPrices = tmc->getIndexPrices();
    for (const auto &indexPrice : indexPrices) {
        json.beginObject();
        json.member("code"_L1, indexPrice->getCode());
        json.member("price"_L1, indexPrice->getPrice());
        json.endObject();
    }
    json.endArray();
    json.endObject();
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

void writeUnit(JsonWriter &json, const GoodsItem &position)
{
    json.beginObject();
    json.member("fractional"_L1, position.getTmcUnit().isFractional());
    json.member("name"_L1, position.getUnitName());
    json.endObject();
}

void writeArticle(JsonWriter &json, const GoodsItem &position)
{
    json.beginObject();
    json.member("barcode"_L1, position.getBarcode());
    json.member("code"_L1, position.getCode());
    json.member("extendedOptions"_L1, position.getExtendedOptions());
    json.member("minRetailPrice"_L1, position.getMinRetailPrice());
    json.member("name"_L1, position.getName());
    json.key("record"_L1);
    writeRecord(json, position.getTmc());
    json.key("unit"_L1);
    writeUnit(json, position);
    json.endObject();
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

void writeSums(JsonWriter &json, const GoodsItem &position)
{
    json.beginObject();
    json.member("after"_L1, position.getSumb());
    json.member("appliedDiscount"_L1, position.getAppliedDiscount());
    json.member("appliedPoints"_L1, position.getAppliedPoints());
    json.member("appliedQuantity"_L1, position.getAppliedQuantity());
    json.member("before"_L1, position.getSumn());
    json.member("price"_L1, position.getPrice());
    json.member("quantity"_L1, position.getBquant());
    json.endObject();
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

void write(JsonWriter &json, const GoodsItem &position)
{
    json.beginObject();
    json.key("article"_L1);
    writeArticle(json, position);
    json.member("number"_L1, position.getPosnum());
    json.member("objectName"_L1, position.objectName());
    json.member("recalcable"_L1, position.isRecalcable());
    json.key("sums"_L1);
    writeSums(json, position);
    json.member("uniteAvailable"_L1, position.isUniteAvailable());
    json.endObject();
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
