#pragma once

#include "emulator/books/database.h"
#include "emulator/data/servicedata.h"

namespace emulator {

struct Card
{
    QString number;
    int status = 0;
    QString type;
    QString holder;
    QString email;
    bool chequesByEmail = false;
    QMap<QString, QString> attributes;
    bool technical = false; ///< made up by a till; neither earns nor spends
};

/// The cards that the service knows. Balances are the ledger's.
class Cards
{
public:
    explicit Cards(Database &database) ///< must outlive this object
        : m_database(database)
    { }

    std::optional<Card> find(const QString &number) const;
    std::vector<Card> all() const;

    /// Adds the card, or gives the known one of this number these properties.
    void put(const Card &card);

private:
    Database &m_database;
};

} // namespace emulator
