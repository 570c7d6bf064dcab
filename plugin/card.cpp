#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include <log4qt/logger.h>

using namespace Qt::Literals::StringLiterals;

bool KorvelLoyaltyOnline::identifyByCard(QSharedPointer<DocumentCardRecord> &card, ECardNumberType)
{
    logger->info(u"Получение информации о карте"_s);
    if (!card)
        return false;
    if (offlineMode)
        return true;
    try {
        interface->balanceRequest(card);
    } catch (const KorvelNoConnectionException &) {
        card->setBonusBalance(0.0);
        // In place of what was kept before, not merged into it: the figures of another card's
        // answer must not stay.
        setPluginData(korvel::plugindata::chequeData,
            QMap<QString, QVariant>{{korvel::result::paidByBonus, 0.0}});
        showNoConnection();
        setOfflineMode();
    } catch (const KorvelException &error) {
        m_lastError = error.tr();
        m_lastErrorFlag = error.flag();
        return false;
    }
    return true;
}
