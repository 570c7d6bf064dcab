// A card is presented.

#include "host/storage/opendocumenthold.h"
#include "till/core/cannotdo.h"
#include "till/core/till.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace till {

bool Till::isPaidWithPoints() const
{
    const auto goods = document()->getGoods();
    return std::any_of(goods.cbegin(), goods.cend(),
        [](const auto &position) { return position->getAppliedPoints() > 0.0; });
}

void Till::requireCardAllowed() const
{
    requireChangeable();
    if (document() && isPaidWithPoints())
        throw CannotDo({u"cannotChangeCardAfterPoints"_s, u"чек оплачен баллами другой карты"_s},
            {u"cannotChangeCardAfterPointsRemedy"_s,
                u"рассчитайте чек заново: баллы вернутся на карту"_s});
}

Outcome Till::presentCard(const QString &number, ECardNumberType type)
{
    requireCardAllowed();
    openSaleWhereNoneIs();
    Outcome outcome;
    attachCard(number, type, outcome);
    keep();
    return outcome;
}

void Till::attachCard(const QString &number, ECardNumberType type, Outcome &outcome)
{
    outcome.presentedCard = number;
    const auto group = QSharedPointer<CardGroup>::create();
    group->setCardMode(m_system->getCardMode());
    const auto card = QSharedPointer<Card>::create();
    card->setNumber(number);
    card->setCardGroup(group);
    auto record = QSharedPointer<DocumentCardRecord>::create(card);

    // What the plug-in saves meanwhile lacks the card; who presents it keeps both together.
    const OpenDocumentHold hold;
    request(outcome, u"identifyByCard"_s, [&] { return m_system->identifyByCard(record, type); });
    if (!outcome.result.toBool() || !record)
        return;
    document()->addCardRecord(record);
    dropPayments();
}

} // namespace till
