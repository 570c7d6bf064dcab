#include "plugin/technicalcard.h"

#include "common/host/documents.h"
#include "plugin/korvelloyaltyonline.h"

#include <QRandomGenerator>

QString technicalCardNumber(const QString &prefix, int suffixLength, quint64 randomNumber)
{
    const QString digits
        = QString::number(randomNumber).rightJustified(suffixLength, u'0').left(suffixLength);
    return prefix + digits;
}

QString KorvelLoyaltyOnline::generateTechnicalCardNumber() const
{
    return technicalCardNumber(
        technicalCardPrefix, technicalCardSuffixLength, QRandomGenerator64::global()->generate());
}

EContext::Result KorvelLoyaltyOnline::addTechnicalCard(const control::Action &)
{
    const auto document = getCurrentDocument();
    if (!document || document->getType() != EDocumentType::Sale || hasCard())
        return EContext::Result::Continue;
    const auto group = QSharedPointer<CardGroup>::create();
    group->setName(technicalCardName);
    group->setCardMode(m_cardMode);
    const auto card = QSharedPointer<Card>::create();
    card->setCardGroup(group);
    card->setNumber(generateTechnicalCardNumber());
    document->addCardRecord(QSharedPointer<DocumentCardRecord>::create(card));
    return EContext::Result::Continue;
}
