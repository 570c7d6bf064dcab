#pragma once

#include "host/documents/card.h"
#include "host/export.h"

#include <QSharedPointer>
#include <QString>
#include <QVariant>

/// A card on a document, with what its loyalty system noted for this document.
class POSHOST_EXPORT DocumentCardRecord
{
public:
    /// @param card never null; shared with whoever made the record.
    explicit DocumentCardRecord(const QSharedPointer<Card> &card);

    [[nodiscard]] QSharedPointer<Card> getCard() const { return m_card; }
    /// The card's number as a text.
    [[nodiscard]] QVariant getNumber() const { return m_card->getNumber(); }
    [[nodiscard]] ECardMode getCardMode() const;
    /// Number of the record within its document, from 1; 0 before it is added to one.
    [[nodiscard]] int getCodeInternal() const { return m_codeInternal; }
    void setCodeInternal(int code) { m_codeInternal = code; }

    /// Balance in points, a number or a number's text; invalid while unknown.
    [[nodiscard]] QVariant getBonusBalance() const { return m_bonusBalance; }
    void setBonusBalance(const QVariant &balance) { m_bonusBalance = balance; }
    /// Points that can be spent on the document.
    [[nodiscard]] double getPointsForSpend() const { return m_pointsForSpend; }
    void setPointsForSpend(double points) { m_pointsForSpend = points; }
    /// Points that the document earns; invalid while unknown.
    [[nodiscard]] QVariant getPointsForEarn() const { return m_pointsForEarn; }
    void setPointsForEarn(const QVariant &points) { m_pointsForEarn = points; }
    /// Id of the loyalty system's transaction; empty before the document is registered.
    [[nodiscard]] QString getOperationId() const { return m_operationId; }
    void setOperationId(const QString &id) { m_operationId = id; }
    /// Whatever the loyalty system wants to find again, a map as a rule.
    [[nodiscard]] QVariant getOperationInfo() const { return m_operationInfo; }
    void setOperationInfo(const QVariant &info) { m_operationInfo = info; }

    /// A copy with all values; the card is shared.
    [[nodiscard]] QSharedPointer<DocumentCardRecord> copy() const;

private:
    QSharedPointer<Card> m_card;
    int m_codeInternal = 0;
    QVariant m_bonusBalance;
    double m_pointsForSpend = 0.0;
    QVariant m_pointsForEarn;
    QString m_operationId;
    QVariant m_operationInfo;
};
