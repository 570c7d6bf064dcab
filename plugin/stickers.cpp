#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/messages.h"
#include "plugin/resultmap.h"
#include "plugin/stickeractions.h"
#include "plugin/stickerselection.h"
#include <log4qt/logger.h>

using namespace Qt::Literals::StringLiterals;

void KorvelLoyaltyOnline::interchangeStickers(QMap<QString, QVariant> &result)
{
    if (!hasStickersActions(result))
        return;
    sendStopEvent();
    if (messages::askForStickers())
        acceptStickers(result);
    else
        declineStickers(result);
    sendStartEvent();
}

void KorvelLoyaltyOnline::acceptStickers(QMap<QString, QVariant> &result)
{
    sendStartEvent();
    selectStickersActions(result);
    result.clear();
    request(getCurrentDocument(), result);
    m_discountImpacts.clear();
    if (money::counts(resultmap::amount(result, korvel::result::discount)))
        fillDiscountImpacts(result);
    fillChequeData(result);
    fillPositionsData(result);
    sendStopEvent();
}

void KorvelLoyaltyOnline::declineStickers(const QMap<QString, QVariant> &result)
{
    removeStickersActions(result, {});
    notUseStickers = true;
    setPluginData(korvel::plugindata::notUseStickers, notUseStickers);
}

bool KorvelLoyaltyOnline::hasStickersActions(const QMap<QString, QVariant> &result) const
{
    return stickeractions::exist(resultmap::positions(result), stickersActionMarker);
}

void KorvelLoyaltyOnline::selectStickersActions(const QMap<QString, QVariant> &result) const
{
    auto actions = stickeractions::found(resultmap::positions(result), stickersActionMarker);
    const auto demand = stickeractions::demandOf(actions);
    if (money::counts(demand.needed - demand.balance))
        selectMostProfitableStickersActions(result, actions, stickers::spendable(demand.balance));
}

void KorvelLoyaltyOnline::selectMostProfitableStickersActions(
    const QMap<QString, QVariant> &result, QList<QVariant> &actions, int capacity) const
{
    const auto selection = stickers::selectMostProfitable(actions, capacity);
    if (!selection.isBest)
        logger->warn(u"Слишком большой выбор: акций %1, фишек %2. Акции взяты по порядку выгоды"_s
                         .arg(actions.size())
                         .arg(capacity));
    // An empty set removes all actions, also when it is empty because all were chosen.
    removeStickersActions(result, selection.positionsToRemove);
}

void KorvelLoyaltyOnline::removeStickersActions(
    const QMap<QString, QVariant> &result, const QSet<QString> &positions) const
{
    setPluginData(korvel::plugindata::positionsData,
        stickeractions::removed(resultmap::positions(result), positions, stickersActionMarker));
}
