// Loyalty is switched off at this till.

#include "host/storage/journal.h"
#include "till/core/till.h"

using namespace Qt::StringLiterals;

namespace till {

bool Till::isPartOfLoyalty(const AbstractDocument &document)
{
    return !document.getCardRecord(ECardMode::OnlineLoyalty).isNull();
}

void Till::switchLoyaltyOff(WithoutLoyalty &without)
{
    m_without = &without;
}

// A cheque with a card is finished by the system that knows it: its points may be booked already.
void Till::turnToSwitchedOff(Outcome &outcome)
{
    if (!m_without || isLoyaltyOff())
        return;
    if (const auto open = document(); open && isPartOfLoyalty(*open))
        return;
    m_system = m_without;
    m_isLoyaltyOff = true;
    Journal::append(u"loyalty"_s, {{u"on"_s, false}});
    outcome.notices.prepend(loyaltyIsOff());
}

} // namespace till
