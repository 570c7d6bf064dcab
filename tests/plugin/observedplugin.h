#pragma once

#include "plugin/korvelloyaltyonline.h"
#include "tests/plugin/story.h"

/// The plug-in with its protected side open, telling the story which of its own virtual operations
/// were called.
class ObservedPlugin : public KorvelLoyaltyOnline
{
public:
    explicit ObservedPlugin(Story &story)
        : m_story(story)
    { }

    using BasicLoyaltySystem::getCard;
    using BasicLoyaltySystem::getPluginData;
    using BasicLoyaltySystem::m_bonusRecords;
    using BasicLoyaltySystem::m_discountImpacts;
    using BasicLoyaltySystem::m_lastErrorFlag;
    using BasicLoyaltySystem::m_messagesToCashier;
    using BasicLoyaltySystem::m_messagesToClient;
    using BasicLoyaltySystem::m_pointsForEarn;
    using BasicLoyaltySystem::m_pointsForSpend;
    using BasicLoyaltySystem::m_pointsToSpend;
    using BasicLoyaltySystem::setPluginData;
    using KorvelLoyaltyOnline::addTechnicalCard;
    using KorvelLoyaltyOnline::afterCouponAdd;
    using KorvelLoyaltyOnline::afterPositionAdd;
    using KorvelLoyaltyOnline::allowChangeQuantityForMarkdownPositions;
    using KorvelLoyaltyOnline::beforeApplyModifiers;
    using KorvelLoyaltyOnline::beforeInput;
    using KorvelLoyaltyOnline::beforePositionAdd;
    using KorvelLoyaltyOnline::cancelBonusUsage;
    using KorvelLoyaltyOnline::cancelExternalDiscount;
    using KorvelLoyaltyOnline::couponsToPrint;
    using KorvelLoyaltyOnline::fillBonusImpacts;
    using KorvelLoyaltyOnline::fillBonusRecords;
    using KorvelLoyaltyOnline::generateTechnicalCardNumber;
    using KorvelLoyaltyOnline::hasStickersActions;
    using KorvelLoyaltyOnline::inputVerificationCode;
    using KorvelLoyaltyOnline::interface;
    using KorvelLoyaltyOnline::lastMarkdownRawData;
    using KorvelLoyaltyOnline::logger;
    using KorvelLoyaltyOnline::markdownCouponPrefix;
    using KorvelLoyaltyOnline::noConfirmationBonusLimit;
    using KorvelLoyaltyOnline::notUseStickers;
    using KorvelLoyaltyOnline::offlineMode;
    using KorvelLoyaltyOnline::printCoupons;
    using KorvelLoyaltyOnline::request;
    using KorvelLoyaltyOnline::selectMostProfitableStickersActions;
    using KorvelLoyaltyOnline::selectStickersActions;
    using KorvelLoyaltyOnline::sendStartEvent;
    using KorvelLoyaltyOnline::sendStopEvent;
    using KorvelLoyaltyOnline::setPropertiesForMarkdownPosition;
    using KorvelLoyaltyOnline::showInternalError;
    using KorvelLoyaltyOnline::showNoConnection;
    using KorvelLoyaltyOnline::stickersActionMarker;
    using KorvelLoyaltyOnline::technicalCardName;
    using KorvelLoyaltyOnline::technicalCardPrefix;
    using KorvelLoyaltyOnline::technicalCardSuffixLength;
    using KorvelLoyaltyOnline::useConfirmation;

    bool rollback(const QSharedPointer<AbstractDocument> &document) override;
    bool cancel() override;
    void fillDiscountImpacts(const QMap<QString, QVariant> &result) override;
    void fillChequeData(const QMap<QString, QVariant> &result) const override;
    void fillPositionsData(const QMap<QString, QVariant> &result) const override;
    void interchangeStickers(QMap<QString, QVariant> &result) override;
    void removeStickersActions(
        const QMap<QString, QVariant> &result, const QSet<QString> &positions) const override;
    void setOfflineMode() override;
    void removeCoupons(const QSharedPointer<AbstractDocument> &document) const override;
    void clearLoyaltyData() override;

    /// What happens inside the exchange of stickers; an empty function: what the plug-in does.
    std::function<void(QMap<QString, QVariant> &)> exchange;

private:
    Story &m_story;
};
