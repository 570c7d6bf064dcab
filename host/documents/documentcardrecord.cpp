#include "host/documents/documentcardrecord.h"

DocumentCardRecord::DocumentCardRecord(const QSharedPointer<Card> &card)
    : m_card(card)
{ }

ECardMode DocumentCardRecord::getCardMode() const
{
    const auto group = m_card->getCardGroup();
    return group ? group->getCardMode() : ECardMode::None;
}

QSharedPointer<DocumentCardRecord> DocumentCardRecord::copy() const
{
    return QSharedPointer<DocumentCardRecord>::create(*this);
}
