#include "tests/restart/closedcheque.h"

using namespace Qt::StringLiterals;

namespace restart {

namespace {

using Json = nlohmann::json;

constexpr int saleType = 1;
constexpr int loyaltyCardMode = 23;

const Json *loyaltyCardOf(const Json &document)
{
    for (const Json &card : document.at("cards"))
        if (!card.at("group").is_null() && card.at("group").at("cardMode") == loyaltyCardMode)
            return &card;
    return nullptr;
}

} // namespace

ClosedCheque::ClosedCheque(const Json &document)
    : m_document(document)
    , m_card(loyaltyCardOf(document))
{ }

std::string ClosedCheque::kind() const
{
    return m_document.at("type") == saleType ? "sale" : "return";
}

std::string ClosedCheque::number() const
{
    return m_document.at("number");
}

std::string ClosedCheque::card() const
{
    return m_card->at("number");
}

std::string ClosedCheque::operationId() const
{
    return m_card->at("operationId");
}

double ClosedCheque::pointsSpent() const
{
    double points = 0.0;
    for (const Json &impact : m_document.at("effects").at("bonusImpacts"))
        points += impact.at("detail").at("sum").get<double>();
    return points;
}

double ClosedCheque::pointsEarned() const
{
    double points = 0.0;
    for (const Json &record : m_document.at("effects").at("bonusRecords"))
        points += record.at("amount").get<double>();
    return points;
}

double ClosedCheque::sumDiscounted() const
{
    double sum = pointsSpent();
    for (const Json &position : m_document.at("positions"))
        sum += position.at("sums").at("after").get<double>();
    return sum;
}

QString ClosedCheque::title() const
{
    return u"%1 %2 of card %3"_s.arg(QString::fromStdString(kind()),
        QString::fromStdString(number()), QString::fromStdString(card()));
}

} // namespace restart
