#include "tests/faults/verdict.h"

#include <algorithm>

namespace faults {

namespace {

bool isRefused(const Json &object)
{
    return !object.at("refusal").is_null();
}

bool isOffline(const Json &document)
{
    const Json &data = document.at("pluginData");
    const auto group = data.find("KorvelLoyaltyOnline");
    return group != data.end() && group->value("offlineMode", false);
}

bool isState(const Json &document, const char *state)
{
    return !document.is_null() && document.at("state") == state;
}

// Whether the service has booked it and not taken it back.
bool isBooked(const Json &transactions, const char *kind)
{
    return std::any_of(transactions.begin(), transactions.end(), [kind](const Json &one) {
        return one.at("kind") == kind && !one.at("rolledBack").get<bool>();
    });
}

bool isNothing(const Json &figure)
{
    return figure.is_null() || (figure.is_number() && figure == 0);
}

// What the operation was to bring.
bool hasBrought(Operation operation, const Json &document)
{
    switch (operation) {
    case Operation::Card:
        return !isNothing(document.at("card").at("bonusBalance"));
    case Operation::Calculation:
        return !isNothing(document.at("points").at("available"));
    default:
        return !document.at("bonusImpacts").empty();
    }
}

Outcome byFigures(Operation operation, const Json &object, const Json &undisturbed)
{
    if (figuresOf(object) == figuresOf(undisturbed))
        return Outcome::Done;
    return hasBrought(operation, object.at("document")) ? Outcome::AsSaid : Outcome::Hollow;
}

// While the cheque is open and goes on.
Outcome underWay(Operation operation, const Sight &sight, const Sight &undisturbed)
{
    const Json &object = *sight.object;
    if (isRefused(object))
        return Outcome::Refused;
    if (isOffline(object.at("document")))
        return Outcome::Offline;
    return byFigures(operation, object, *undisturbed.object);
}

Outcome registered(const Sight &sight, const Sight &undisturbed)
{
    const Json &document = sight.object->at("document");
    if (isState(document, "open"))
        return Outcome::KeptOpen;
    if (!sight.undelivered.isEmpty())
        return Outcome::Queued;
    if (!isBooked(sight.transactions, "sale"))
        return Outcome::Unbooked;
    if (document.at("card").at("operationId").get<std::string>().empty())
        return Outcome::Unnumbered;
    return figuresOf(*sight.object) == figuresOf(*undisturbed.object) ? Outcome::Done
                                                                      : Outcome::AsSaid;
}

Outcome returned(const Sight &sight)
{
    if (isState(sight.object->at("document"), "open"))
        return isRefused(*sight.object) ? Outcome::KeptOpen : Outcome::Done;
    if (!sight.undelivered.isEmpty())
        return Outcome::Queued;
    return isBooked(sight.transactions, "return") ? Outcome::Done : Outcome::Unbooked;
}

Outcome rolledBack(const Sight &sight)
{
    if (!isState(sight.object->at("document"), "cancelled"))
        return Outcome::KeptOpen;
    return isBooked(sight.transactions, "sale") ? Outcome::Unbooked : Outcome::Done;
}

Outcome delivered(const Sight &sight)
{
    if (!sight.undelivered.isEmpty())
        return Outcome::Waits;
    return isBooked(sight.transactions, "sale") ? Outcome::Done : Outcome::Unbooked;
}

// Positions, sums and payments are all there.
Outcome withoutService(const Sight &sight, const Sight &undisturbed)
{
    const Json &document = sight.object->at("document");
    const Json &usual = undisturbed.object->at("document");
    const bool isWhole = !document.is_null() && document.at("positions") == usual.at("positions")
        && figuresOf(*sight.object) == figuresOf(*undisturbed.object);
    return isWhole ? Outcome::Done : Outcome::Hollow;
}

} // namespace

Json figuresOf(const Json &object)
{
    const Json &document = object.at("document");
    if (document.is_null())
        return {};
    const Json &card = document.at("card");
    return {card.is_null() ? Json() : card.at("bonusBalance"), document.at("sumDiscounted"),
        document.at("points")};
}

Outcome verdictOn(Operation operation, const Sight &sight, const Sight &undisturbed)
{
    if (!sight.object)
        return Outcome::Stops;
    switch (operation) {
    case Operation::Card:
    case Operation::Calculation:
    case Operation::Points:
        return underWay(operation, sight, undisturbed);
    case Operation::Registration:
        return registered(sight, undisturbed);
    case Operation::Return:
        return returned(sight);
    case Operation::Rollback:
        return rolledBack(sight);
    case Operation::Delivery:
        return delivered(sight);
    case Operation::Saving:
    case Operation::Restoring:
        break;
    }
    return withoutService(sight, undisturbed);
}

} // namespace faults
