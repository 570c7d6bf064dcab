#include "plugin/korvelloyaltyonline.h"
#include "plugin/resultmap.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The host's code for points that the service itself has computed.
constexpr int serviceCampaignCode = 1200;

DocumentBonusRecord makeRecord(const DocumentCardRecord &card, double points)
{
    DocumentBonusRecord record;
    record.setCardNumber(card.getNumber().toString());
    record.setAmount(points);
    record.setCampaignCode(serviceCampaignCode);
    record.setDateTime(MockFactory<CurrentTime>::create()->currentDateTime());
    record.setCampaignName(u"Начисление Korvel Loyalty Online"_s);
    return record;
}

DocumentBonusRecord makePositionRecord(
    const DocumentCardRecord &card, const QString &position, double points)
{
    DocumentBonusRecord record = makeRecord(card, points);
    record.setPosition(position);
    record.setGivenForPosition(true);
    return record;
}

} // namespace

void KorvelLoyaltyOnline::fillBonusRecords(const QMap<QString, QVariant> &result)
{
    const auto card = getCard();
    double onPositions = 0.0;
    const auto positions = resultmap::positions(result);
    for (auto position = positions.cbegin(); position != positions.cend(); ++position) {
        const double points = resultmap::earned(position->toMap());
        if (!money::counts(points))
            continue;
        m_bonusRecords.append(makePositionRecord(*card, position.key(), points));
        onPositions += points;
    }
    const double rest = resultmap::earned(result) - onPositions;
    if (money::counts(rest))
        m_bonusRecords.append(distributeBonusRecord(getCurrentDocument(), makeRecord(*card, rest)));
}
