#include "common/names.h"
#include "plugin/korvelloyaltyonline.h"
#include "plugin/resultmap.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// What discounts and payments with points have in common.
QSharedPointer<DocumentImpactDetail> makeDetail(
    int position, EDiscountType::type type, double rate, double sum, const QString &name)
{
    auto detail = QSharedPointer<DocumentImpactDetail>::create();
    detail->setDateTime(MockFactory<CurrentTime>::create()->currentDateTime());
    detail->setImpactSource(EImpactSource::LoyaltySystem);
    detail->setDiscountObject(EDiscountObject::Position);
    detail->setPosition(position);
    detail->setDiscountMode(EDiscountMode::Automatic);
    detail->setDiscountType(type);
    detail->setDiscountRate(rate);
    detail->setDiscountSum(sum);
    detail->setDiscountName(name);
    detail->setMinPriceIgnored(true);
    return detail;
}

QSharedPointer<DiscountImpact> makeDiscountImpact(
    int position, const QMap<QString, QVariant> &figures)
{
    using resultmap::amount;
    const double sum
        = amount(figures, korvel::result::summ) - amount(figures, korvel::result::summDiscounted);
    return QSharedPointer<DiscountImpact>::create(makeDetail(position, EDiscountType::Percentage,
        amount(figures, korvel::result::discount), sum, u"Скидка Korvel Loyalty Online"_s));
}

QSharedPointer<BonusImpact> makeBonusImpact(
    int position, double points, const QSharedPointer<DocumentCardRecord> &card)
{
    const auto detail = makeDetail(
        position, EDiscountType::Points, points, points, u"Баллы Korvel Loyalty Online"_s);
    detail->setCardRecord(card);
    detail->setCardIndex(card->getCodeInternal());
    auto impact = QSharedPointer<BonusImpact>::create(detail);
    impact->addDetailForPosition(position, points);
    return impact;
}

} // namespace

void KorvelLoyaltyOnline::fillDiscountImpacts(const QMap<QString, QVariant> &result)
{
    // No threshold: a position without discount gets an impact of 0 too.
    const auto positions = resultmap::positions(result);
    for (auto position = positions.cbegin(); position != positions.cend(); ++position)
        m_discountImpacts.append(
            makeDiscountImpact(resultmap::positionNumber(position.key()), position->toMap()));
}

void KorvelLoyaltyOnline::fillBonusImpacts(const QMap<QString, QVariant> &result)
{
    const auto card = getCard();
    const auto positions = resultmap::positions(result);
    for (auto position = positions.cbegin(); position != positions.cend(); ++position) {
        const double points = resultmap::amount(position->toMap(), korvel::result::writeoffBonus);
        if (money::counts(points))
            m_bonusImpactsForSpend.append(
                makeBonusImpact(resultmap::positionNumber(position.key()), points, card));
    }
}
