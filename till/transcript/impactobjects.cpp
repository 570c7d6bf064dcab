#include "till/transcript/impactobjects.h"

namespace till {

namespace {

Json impactObject(const DocumentImpact &impact)
{
    const auto detail = impact.getDetail();
    return {{"position", detail->getPosition()},
        {"source", static_cast<int>(detail->getImpactSource())},
        {"object", static_cast<int>(detail->getDiscountObject())},
        {"mode", static_cast<int>(detail->getDiscountMode())},
        {"type", static_cast<int>(detail->getDiscountType())},
        {"rate", amountToJson(detail->getDiscountRate())}, {"sum", detail->getDiscountSum()},
        {"name", toJson(detail->getDiscountName())},
        {"minPriceIgnored", detail->isMinPriceIgnored()},
        {"dateTime", dateTimeToJson(detail->getDateTime())}};
}

Json shareObjects(const DocumentImpact &impact)
{
    Json shares = Json::array();
    const auto all = impact.getDetailsForPositions();
    for (const DocumentImpactShare &share : all)
        shares.push_back({{"position", share.position}, {"sum", share.sum}});
    return shares;
}

Json bonusRecordObject(const DocumentBonusRecord &record)
{
    const QVariant position = record.getPosition();
    return {{"cardNumber", toJson(record.getCardNumber())},
        {"position", position.isValid() ? Json(toJson(position.toString())) : Json(nullptr)},
        {"amount", record.getAmount()}, {"code", record.getCampaignCode()},
        {"name", toJson(record.getCampaignName())}, {"flag", record.isGivenForPosition()},
        {"dateTime", dateTimeToJson(record.getDateTime())}};
}

} // namespace

Json discountImpactObjects(const QList<QSharedPointer<DiscountImpact>> &impacts)
{
    Json objects = Json::array();
    for (const auto &impact : impacts)
        objects.push_back(impactObject(*impact));
    return objects;
}

Json bonusImpactObjects(const QList<QSharedPointer<BonusImpact>> &impacts)
{
    Json objects = Json::array();
    for (const auto &impact : impacts) {
        Json object = impactObject(*impact);
        object["cardIndex"] = amountToJson(impact->getDetail()->getCardIndex());
        object["details"] = shareObjects(*impact);
        objects.push_back(object);
    }
    return objects;
}

Json bonusRecordObjects(const QList<DocumentBonusRecord> &records)
{
    Json objects = Json::array();
    for (const DocumentBonusRecord &record : records)
        objects.push_back(bonusRecordObject(record));
    return objects;
}

} // namespace till
