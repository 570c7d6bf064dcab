#pragma once

#include "host/export.h"

#include <QDateTime>
#include <QString>
#include <QVariant>

/// Points that a document earns. A record of values.
class POSHOST_EXPORT DocumentBonusRecord
{
public:
    [[nodiscard]] QString getCardNumber() const { return m_cardNumber; }
    void setCardNumber(const QString &number) { m_cardNumber = number; }
    /// The position's number; invalid for points of the whole document.
    [[nodiscard]] QVariant getPosition() const { return m_position; }
    void setPosition(const QVariant &position) { m_position = position; }
    /// In points.
    [[nodiscard]] double getAmount() const { return m_amount; }
    void setAmount(double amount) { m_amount = amount; }
    /// Code of the campaign that the points are booked under.
    [[nodiscard]] int getCampaignCode() const { return m_campaignCode; }
    void setCampaignCode(int code) { m_campaignCode = code; }
    [[nodiscard]] QString getCampaignName() const { return m_campaignName; }
    void setCampaignName(const QString &name) { m_campaignName = name; }
    /// True when the loyalty system itself gave the points to this position.
    [[nodiscard]] bool isGivenForPosition() const { return m_givenForPosition; }
    void setGivenForPosition(bool given) { m_givenForPosition = given; }
    [[nodiscard]] QDateTime getDateTime() const { return m_dateTime; }
    void setDateTime(const QDateTime &dateTime) { m_dateTime = dateTime; }

private:
    QString m_cardNumber;
    QVariant m_position;
    double m_amount = 0.0;
    int m_campaignCode = 0;
    QString m_campaignName;
    bool m_givenForPosition = false;
    QDateTime m_dateTime;
};
