#include "till/transcript/documentobject.h"

#include "till/transcript/impactobjects.h"

namespace till {

namespace {

const char *stateName(EDocumentState state)
{
    switch (state) {
    case EDocumentState::Open:
        return "open";
    case EDocumentState::Closed:
        return "closed";
    case EDocumentState::Cancelled:
        return "cancelled";
    }
    Q_UNREACHABLE();
}

Json optionsOf(const Client &client)
{
    Json options = Json::array();
    for (const auto option : {ClientOptions::ElectronicCheque, ClientOptions::ChequeByEmail})
        if (client.hasOption(option))
            options.push_back(static_cast<int>(option));
    return options;
}

Json clientObject(const QSharedPointer<Client> &client)
{
    if (!client)
        return nullptr;
    return {{"name", toJson(client->getName())}, {"email", toJson(client->getEmail())},
        {"options", optionsOf(*client)}};
}

Json groupObject(const QSharedPointer<CardGroup> &group)
{
    if (!group)
        return nullptr;
    return {
        {"name", toJson(group->getName())}, {"cardMode", static_cast<int>(group->getCardMode())}};
}

Json cardObject(const QSharedPointer<DocumentCardRecord> &record)
{
    if (!record)
        return nullptr;
    return {{"number", toJson(record->getNumber().toString())},
        {"bonusBalance", amountToJson(record->getBonusBalance())},
        {"pointsForSpend", amountToJson(record->getPointsForSpend())},
        {"pointsForEarn", amountToJson(record->getPointsForEarn())},
        {"operationId", toJson(record->getOperationId())},
        {"operationInfo", toJson(QVariant(record->getOperationInfo().toMap()))},
        {"group", groupObject(record->getCard()->getCardGroup())},
        {"client", clientObject(record->getCard()->getClient())}};
}

Json positionObjects(const AbstractDocument &document)
{
    Json positions = Json::array();
    const auto goods = document.getGoods();
    for (const auto &position : goods)
        positions.push_back({{"number", position->getPosnum()},
            {"code", toJson(position->getCode())}, {"name", toJson(position->getName())},
            {"price", position->getPrice()}, {"quantity", position->getBquant()},
            {"sum", position->getSumn()}, {"sumDiscounted", position->getSumb()},
            {"minRetailPrice", position->getMinRetailPrice()},
            {"extendedOptions", toJson(position->getExtendedOptions())},
            {"uniteAvailable", position->isUniteAvailable()}});
    return positions;
}

Json couponObjects(const AbstractDocument &document)
{
    Json coupons = Json::array();
    const auto all = document.getCoupons();
    for (const auto &coupon : all)
        coupons.push_back({{"number", toJson(coupon->getNumber())},
            {"displayedNumber", toJson(coupon->getDisplayedNumber())}});
    return coupons;
}

Json pluginDataObject(const AbstractDocument &document)
{
    Json groups = Json::object();
    const auto stored = document.getStoredValues();
    for (auto group = stored.cbegin(); group != stored.cend(); ++group)
        groups[toJson(group.key())] = toJson(QVariant(*group));
    return groups;
}

Json paymentObjects(const AbstractDocument &document)
{
    Json payments = Json::array();
    const auto all = document.getPayments();
    for (const Payment &payment : all)
        payments.push_back({{"kind", toJson(payment.kind)}, {"amount", payment.amount}});
    return payments;
}

} // namespace

Json documentObject(const AbstractDocument &document)
{
    const LoyaltyEffects &effects = document.getEffects();
    return {{"type", document.getTypeCode()}, {"number", toJson(document.getNumber())},
        {"state", stateName(document.getState())}, {"sum", document.getSumBeforeDiscounts()},
        {"sumDiscounted", document.getSumAfterDiscounts()},
        {"refersTo", toJson(document.getReferencedNumber())},
        {"card", cardObject(document.getCardRecord(ECardMode::OnlineLoyalty))},
        {"positions", positionObjects(document)}, {"coupons", couponObjects(document)},
        {"discountImpacts", discountImpactObjects(effects.discountImpacts)},
        {"bonusImpacts", bonusImpactObjects(effects.bonusImpacts)},
        {"bonusRecords", bonusRecordObjects(effects.bonusRecords)},
        {"pluginData", pluginDataObject(document)}, {"payments", paymentObjects(document)},
        {"messagesToCashier", toJson(QVariant(effects.messagesToCashier))},
        {"messagesToClient", toJson(QVariant(effects.messagesToClient))},
        {"chequeText", toJson(document.getChequeText())},
        {"points",
            {{"available", effects.pointsAvailable}, {"chosen", effects.pointsChosen},
                {"earned", effects.pointsEarned}}}};
}

} // namespace till
