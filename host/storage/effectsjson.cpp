#include "host/storage/effectsjson.h"

#include "host/storage/cardjson.h"
#include "host/storage/variantjson.h"

#include <QJsonArray>

using namespace Qt::Literals::StringLiterals;
using variantjson::fromDouble;
using variantjson::fromVariant;

namespace effectsjson {

namespace {

QJsonValue writeCard(const QSharedPointer<DocumentCardRecord> &card, const CardRecords &cards)
{
    if (!card)
        return {};
    const qsizetype place = cards.indexOf(card);
    return place < 0 ? QJsonValue(cardjson::write(*card)) : QJsonValue(static_cast<int>(place));
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

QJsonObject writeDetail(const DocumentImpactDetail &detail, const CardRecords &cards)
{
    return {
        {u"dateTime"_s, variantjson::fromTime(detail.getDateTime())},
        {u"source"_s, static_cast<int>(detail.getImpactSource())},
        {u"object"_s, static_cast<int>(detail.getDiscountObject())},
        {u"position"_s, detail.getPosition()},
        {u"mode"_s, static_cast<int>(detail.getDiscountMode())},
        {u"type"_s, static_cast<int>(detail.getDiscountType())},
        {u"rate"_s, fromVariant(detail.getDiscountRate())},
        {u"sum"_s, fromDouble(detail.getDiscountSum())},
        {u"name"_s, detail.getDiscountName()},
        {u"minPriceIgnored"_s, detail.isMinPriceIgnored()},
        {u"card"_s, writeCard(detail.getCardRecord(), cards)},
        {u"cardIndex"_s, fromVariant(detail.getCardIndex())},
    };
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

QJsonObject writeImpact(const DocumentImpact &impact, const CardRecords &cards)
{
    QJsonArray shares;
    const auto details = impact.getDetailsForPositions();
    for (const DocumentImpactShare &share : details)
        shares.append(
            QJsonObject{{u"position"_s, share.position}, {u"sum"_s, fromDouble(share.sum)}});
    return {{u"detail"_s, writeDetail(*impact.getDetail(), cards)}, {u"shares"_s, shares}};
}

template <typename Impact>
QJsonArray writeImpacts(const QList<QSharedPointer<Impact>> &impacts, const CardRecords &cards)
{
    QJsonArray items;
    for (const auto &impact : impacts)
        items.append(writeImpact(*impact, cards));
    return items;
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

QJsonArray writeBonusRecords(const QList<DocumentBonusRecord> &records)
{
    QJsonArray items;
    for (const DocumentBonusRecord &record : records)
        items.append(QJsonObject{
            {u"cardNumber"_s, record.getCardNumber()},
            {u"position"_s, fromVariant(record.getPosition())},
            {u"amount"_s, fromDouble(record.getAmount())},
            {u"campaignCode"_s, record.getCampaignCode()},
            {u"campaignName"_s, record.getCampaignName()},
            {u"givenForPosition"_s, record.isGivenForPosition()},
            {u"dateTime"_s, variantjson::fromTime(record.getDateTime())},
        });
    return items;
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

QStringList readTexts(const JsonField &field)
{
    QStringList texts;
    for (const JsonField &item : field.items())
        texts.append(item.text());
    return texts;
}

} // namespace

QJsonObject write(const LoyaltyEffects &effects, const CardRecords &cards)
{
    return {
        {u"discountImpacts"_s, writeImpacts(effects.discountImpacts, cards)},
        {u"bonusImpacts"_s, writeImpacts(effects.bonusImpacts, cards)},
        {u"bonusRecords"_s, writeBonusRecords(effects.bonusRecords)},
        {u"messagesToCashier"_s, QJsonArray::fromStringList(effects.messagesToCashier)},
        {u"messagesToClient"_s, QJsonArray::fromStringList(effects.messagesToClient)},
        {u"pointsAvailable"_s, fromDouble(effects.pointsAvailable)},
        {u"pointsChosen"_s, fromDouble(effects.pointsChosen)},
        {u"pointsEarned"_s, fromDouble(effects.pointsEarned)},
    };
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
