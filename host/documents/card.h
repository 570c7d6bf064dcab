#pragma once

#include "host/documents/client.h"
#include "host/documents/documenttype.h"
#include "host/export.h"

#include <QSharedPointer>
#include <QString>

/// A kind of cards: its name and the loyalty system that it belongs to.
class POSHOST_EXPORT CardGroup
{
public:
    [[nodiscard]] QString getName() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    [[nodiscard]] ECardMode getCardMode() const { return m_cardMode; }
    void setCardMode(ECardMode mode) { m_cardMode = mode; }

private:
    QString m_name;
    ECardMode m_cardMode = ECardMode::None;
};

/// A customer's card.
class POSHOST_EXPORT Card
{
public:
    [[nodiscard]] QString getNumber() const { return m_number; }
    void setNumber(const QString &number) { m_number = number; }
    /// Null for a card of no group.
    [[nodiscard]] QSharedPointer<CardGroup> getCardGroup() const { return m_group; }
    void setCardGroup(const QSharedPointer<CardGroup> &group) { m_group = group; }
    /// Null until a loyalty system has attached one.
    [[nodiscard]] QSharedPointer<Client> getClient() const { return m_client; }
    void setClient(const QSharedPointer<Client> &client) { m_client = client; }

private:
    QString m_number;
    QSharedPointer<CardGroup> m_group;
    QSharedPointer<Client> m_client;
};
