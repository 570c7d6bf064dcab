#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/resultmap.h"
#include "plugin/stickeractions.h"

void KorvelLoyaltyOnline::interchangeStickers(QMap<QString, QVariant> &) { }

bool KorvelLoyaltyOnline::hasStickersActions(const QMap<QString, QVariant> &) const
{
    return false;
}

void KorvelLoyaltyOnline::selectStickersActions(const QMap<QString, QVariant> &) const { }

void KorvelLoyaltyOnline::removeStickersActions(
    const QMap<QString, QVariant> &result, const QSet<QString> &positions) const
{
    setPluginData(korvel::plugindata::positionsData,
        stickeractions::removed(resultmap::positions(result), positions, stickersActionMarker));
}
