#include "common/host/services.h"
#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr LoyaltySystemOption options[]
    = {LoyaltySystemOption::SpendsPoints, LoyaltySystemOption::EarnsPoints,
        LoyaltySystemOption::UsesCoupons, LoyaltySystemOption::WorksOffline};

QString settingKey(const QString &name)
{
    return korvel::group + u':' + name;
}

} // namespace

KorvelLoyaltyOnline::KorvelLoyaltyOnline()
    : interface(MockFactory<korvelLoyaltyOnline::Interface>::create())
    , stickersActionMarker(u"Interchange"_s)
    , technicalCardPrefix(u"375"_s)
    , technicalCardName(u"Korvel Loyalty Online Technical"_s)
    , markdownCouponPrefix(u"на уценку %1% № "_s)
    , logger(Log4Qt::LogManager::logger(korvel::loggerName))
{
    m_cardMode = ECardMode::OnlineLoyalty;
    for (const LoyaltySystemOption option : options)
        setOption(option, true);
    setPluginName(QString::fromLatin1(staticMetaObject.className()));
    readSettings();
}

KorvelLoyaltyOnline::~KorvelLoyaltyOnline() = default;

void KorvelLoyaltyOnline::readSettings()
{
    const Config &config = *Singleton<Config>::instance();
    const auto readBool = [&config](const QString &name, bool &member) {
        member = config.getBool(settingKey(name), member);
    };
    const auto readText = [&config](const QString &name, QString &member) {
        member = config.getString(settingKey(name), member);
    };
    readBool(u"useConfirmation"_s, useConfirmation);
    noConfirmationBonusLimit
        = config.getDouble(settingKey(u"noConfirmationBonusLimit"_s), noConfirmationBonusLimit);
    readText(u"stickersActionMarker"_s, stickersActionMarker);
    readText(u"technicalCardPrefix"_s, technicalCardPrefix);
    technicalCardSuffixLength
        = config.getInt(settingKey(u"technicalCardSuffixLength"_s), technicalCardSuffixLength);
    readText(u"technicalCardName"_s, technicalCardName);
    readText(u"markdownCouponPrefix"_s, markdownCouponPrefix);
    readBool(u"allowChangeQuantityForMarkdownPositions"_s, allowChangeQuantityForMarkdownPositions);
}

void KorvelLoyaltyOnline::clearLoyaltyData()
{
    BasicLoyaltySystem::clearLoyaltyData();
    couponsToPrint.clear();
    notUseStickers = false;
    offlineMode = false;
}
