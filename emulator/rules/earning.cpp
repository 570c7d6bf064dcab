#include "emulator/rules/earning.h"

#include "emulator/rules/thresholds.h"

#include <algorithm>

namespace emulator {

namespace {

Percent percentFor(const QString &article, const Earning &earning)
{
    const auto own = std::find_if(earning.articles.begin(), earning.articles.end(),
        [&](const ArticleEarning &rule) { return rule.article == article; });
    return own == earning.articles.end() ? earning.percent : own->percent;
}

} // namespace

void earn(Calculation &calculation, const Earning &earning)
{
    for (CalculatedPosition &position : calculation.positions) {
        const Amount paid = position.sumDiscounted - position.spent;
        position.earned = percentFor(position.article, earning).of(paid);
        position.earnedStatus = earning.statusPercent.of(paid);
    }
    const Amount paid = calculation.sumDiscounted() - calculation.spent();
    const ChequeEarning *rule = highestReached(earning.cheque, paid);
    if (rule && paid > Amount())
        calculation.earnedByCheque = rule->points;
}

} // namespace emulator
