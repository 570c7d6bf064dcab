#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/resultmap.h"

namespace {
namespace key = korvel::result;
namespace stored = korvel::plugindata;
} // namespace

void KorvelLoyaltyOnline::fillChequeData(const QMap<QString, QVariant> &result) const
{
    auto data = getPluginData(stored::chequeData, {}).toMap();
    for (const QString &name : {key::summ, key::discount, key::summDiscounted})
        data.insert(name, result.value(name));
    if (result.contains(key::extendedAttributes))
        data.insert(key::extendedAttributes, result.value(key::extendedAttributes));
    setPluginData(stored::chequeData, data);
}

void KorvelLoyaltyOnline::fillPositionsData(const QMap<QString, QVariant> &result) const
{
    setPluginData(stored::positionsData, resultmap::positions(result));
}

void KorvelLoyaltyOnline::setPaidByBonus(double points) const
{
    auto data = getPluginData(stored::chequeData, {}).toMap();
    data.insert(key::paidByBonus, points);
    setPluginData(stored::chequeData, data);
}

void KorvelLoyaltyOnline::cancelBonusUsage()
{
    setPaidByBonus(0.0);
}
