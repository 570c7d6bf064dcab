#include "host/storage/effectsjson.h"

#include "host/storage/cardjson.h"
#include "host/storage/variantjson.h"

using namespace Qt::Literals::StringLiterals;

namespace effectsjson {

namespace {

void writeCard(
    JsonWriter &json, const QSharedPointer<DocumentCardRecord> &card, const CardRecords &cards)
{
    if (!card)
        return json.null();
    const qsizetype place = cards.indexOf(card);
    if (place < 0)
        cardjson::write(json, *card);
    else
        json.value(static_cast<int>(place));
}

QSharedPointer<DocumentCardRecord> readCard(const JsonField &field, const CardRecords &cards)
{
    if (field.isNull())
        return {};
    if (field.value().isObject())
        return cardjson::read(field);
    const int place = field.integer();
    if (place < 0 || place >= cards.size())
        field.fail({u"jsonCardPlace"_s, u"место записи карты в этом документе"_s});
    return cards.at(place);
}

void writeDetail(JsonWriter &json, const DocumentImpactDetail &detail, const CardRecords &cards)
{
    json.beginObject();
    json.key("card"_L1);
    writeCard(json, detail.getCardRecord(), cards);
    json.key("cardIndex"_L1);
    variantjson::write(json, detail.getCardIndex());
    json.member("dateTime"_L1, detail.getDateTime());
    json.member("minPriceIgnored"_L1, detail.isMinPriceIgnored());
    json.member("mode"_L1, static_cast<int>(detail.getDiscountMode()));
    json.member("name"_L1, detail.getDiscountName());
    json.member("object"_L1, static_cast<int>(detail.getDiscountObject()));
    json.member("position"_L1, detail.getPosition());
    json.key("rate"_L1);
    variantjson::write(json, detail.getDiscountRate());
    json.member("source"_L1, static_cast<int>(detail.getImpactSource()));
    json.member("sum"_L1, detail.getDiscountSum());
    json.member("type"_L1, static_cast<int>(detail.getDiscountType()));
    json.endObject();
}

template <typename Enumeration> Enumeration code(const JsonField &field)
{
    return static_cast<Enumeration>(field.integer());
}

QSharedPointer<DocumentImpactDetail> readDetail(const JsonField &field, const CardRecords &cards)
{
    auto detail = QSharedPointer<DocumentImpactDetail>::create();
    detail->setDateTime(field.at(u"dateTime"_s).time());
    detail->setImpactSource(code<EImpactSource::source>(field.at(u"source"_s)));
    detail->setDiscountObject(code<EDiscountObject::type>(field.at(u"object"_s)));
    detail->setPosition(field.at(u"position"_s).integer());
    detail->setDiscountMode(code<EDiscountMode::type>(field.at(u"mode"_s)));
    detail->setDiscountType(code<EDiscountType::type>(field.at(u"type"_s)));
    detail->setDiscountRate(field.at(u"rate"_s).variant());
    detail->setDiscountSum(field.at(u"sum"_s).number());
    detail->setDiscountName(field.at(u"name"_s).text());
    detail->setMinPriceIgnored(field.at(u"minPriceIgnored"_s).flag());
    detail->setCardRecord(readCard(field.at(u"card"_s), cards));
    detail->setCardIndex(field.at(u"cardIndex"_s).variant());
    return detail;
}

void writeShares(JsonWriter &json, const DocumentImpact &impact)
{
    json.beginArray();
    const auto details = impact.getDetailsForPositions();
    for (const DocumentImpactShare &share : details) {
        json.beginObject();
        json.member("position"_L1, share.position);
        json.member("sum"_L1, share.sum);
        json.endObject();
    }
    json.endArray();
}

template <typename Impact>
void writeImpacts(
    JsonWriter &json, const QList<QSharedPointer<Impact>> &impacts, const CardRecords &cards)
{
    json.beginArray();
    for (const auto &impact : impacts) {
        json.beginObject();
        json.key("detail"_L1);
        writeDetail(json, *impact->getDetail(), cards);
        json.key("shares"_L1);
        writeShares(json, *impact);
        json.endObject();
    }
    json.endArray();
}

template <typename Impact>
QList<QSharedPointer<Impact>> readImpacts(const JsonField &field, const CardRecords &cards)
{
    QList<QSharedPointer<Impact>> impacts;
    for (const JsonField &item : field.items()) {
        const auto impact = QSharedPointer<Impact>::create(readDetail(item.at(u"detail"_s), cards));
        for (const JsonField &share : item.at(u"shares"_s).items())
            impact->addDetailForPosition(
                share.at(u"position"_s).integer(), share.at(u"sum"_s).number());
        impacts.append(impact);
    }
    return impacts;
}

void writeBonusRecord(JsonWriter &json, const DocumentBonusRecord &record)
{
    json.beginObject();
    json.member("amount"_L1, record.getAmount());
    json.member("campaignCode"_L1, record.getCampaignCode());
    json.member("campaignName"_L1, record.getCampaignName());
    json.member("cardNumber"_L1, record.getCardNumber());
    json.member("dateTime"_L1, record.getDateTime());
    json.member("givenForPosition"_L1, record.isGivenForPosition());
    json.key("position"_L1);
    variantjson::write(json, record.getPosition());
    json.endObject();
}

void writeBonusRecords(JsonWriter &json, const QList<DocumentBonusRecord> &records)
{
    json.beginArray();
    for (const DocumentBonusRecord &record : records)
        writeBonusRecord(json, record);
    json.endArray();
}

DocumentBonusRecord readBonusRecord(const JsonField &field)
{
    DocumentBonusRecord record;
    record.setCardNumber(field.at(u"cardNumber"_s).text());
    record.setPosition(field.at(u"position"_s).variant());
    record.setAmount(field.at(u"amount"_s).number());
    record.setCampaignCode(field.at(u"campaignCode"_s).integer());
    record.setCampaignName(field.at(u"campaignName"_s).text());
    record.setGivenForPosition(field.at(u"givenForPosition"_s).flag());
    record.setDateTime(field.at(u"dateTime"_s).time());
    return record;
}

QList<DocumentBonusRecord> readBonusRecords(const JsonField &field)
{
    QList<DocumentBonusRecord> records;
    for (const JsonField &item : field.items())
        records.append(readBonusRecord(item));
    return records;
}

void writeTexts(JsonWriter &json, const QStringList &texts)
{
    json.beginArray();
    for (const QString &text : texts)
        json.value(text);
    json.endArray();
}

QStringList readTexts(const JsonField &field)
{
    QStringList texts;
    for (const JsonField &item : field.items())
        texts.append(item.text());
    return texts;
}

} // namespace

void write(JsonWriter &json, const LoyaltyEffects &effects, const CardRecords &cards)
{
    json.beginObject();
    json.key("bonusImpacts"_L1);
    writeImpacts(json, effects.bonusImpacts, cards);
    json.key("bonusRecords"_L1);
    writeBonusRecords(json, effects.bonusRecords);
    json.key("discountImpacts"_L1);
    writeImpacts(json, effects.discountImpacts, cards);
    json.key("messagesToCashier"_L1);
    writeTexts(json, effects.messagesToCashier);
    json.key("messagesToClient"_L1);
    writeTexts(json, effects.messagesToClient);
    json.member("pointsAvailable"_L1, effects.pointsAvailable);
    json.member("pointsChosen"_L1, effects.pointsChosen);
    json.member("pointsEarned"_L1, effects.pointsEarned);
    json.endObject();
}

LoyaltyEffects read(const JsonField &field, const CardRecords &cards)
{
    LoyaltyEffects effects;
    effects.discountImpacts = readImpacts<DiscountImpact>(field.at(u"discountImpacts"_s), cards);
    effects.bonusImpacts = readImpacts<BonusImpact>(field.at(u"bonusImpacts"_s), cards);
    effects.bonusRecords = readBonusRecords(field.at(u"bonusRecords"_s));
    effects.messagesToCashier = readTexts(field.at(u"messagesToCashier"_s));
    effects.messagesToClient = readTexts(field.at(u"messagesToClient"_s));
    effects.pointsAvailable = field.at(u"pointsAvailable"_s).number();
    effects.pointsChosen = field.at(u"pointsChosen"_s).number();
    effects.pointsEarned = field.at(u"pointsEarned"_s).number();
    return effects;
}

} // namespace effectsjson
