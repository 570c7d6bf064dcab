#pragma once

#include <QString>

#include <nlohmann/json.hpp>

namespace restart {

/// A closed document as the till's file tells it.
class ClosedCheque
{
public:
    /// @param document must outlive this.
    explicit ClosedCheque(const nlohmann::json &document);

    /// The service's word for what it makes of such a document: "sale" or "return".
    [[nodiscard]] std::string kind() const;
    [[nodiscard]] std::string number() const;
    /// Whether the loyalty service has to know of it.
    [[nodiscard]] bool hasLoyaltyCard() const { return m_card != nullptr; }
    [[nodiscard]] std::string card() const;
    /// The service's id of its registration; empty when it was not registered online.
    [[nodiscard]] std::string operationId() const;
    [[nodiscard]] double pointsSpent() const;
    [[nodiscard]] double pointsEarned() const;
    /// What the goods cost, payments with points not taken off.
    [[nodiscard]] double sumDiscounted() const;
    /// "sale 17 of card 2900000000017", for people.
    [[nodiscard]] QString title() const;

private:
    const nlohmann::json &m_document;
    const nlohmann::json *m_card = nullptr; ///< the loyalty system's, null where there is none
};

} // namespace restart
