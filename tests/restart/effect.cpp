#include "tests/restart/effect.h"

#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace restart {

namespace {

using Json = nlohmann::json;
using Rule = bool (*)(const Command &command, const Json &before, const Json &now);

// What a document that is not there holds.
Json listOf(const Json &document, const char *member)
{
    return document.is_null() ? Json::array() : document.at(member);
}

bool grew(const Json &before, const Json &now, const char *member)
{
    return listOf(now, member).size() > listOf(before, member).size();
}

std::string argument(const Command &command)
{
    return command.argument(1).toStdString();
}

const Json *positionOf(const Command &command, const Json &document)
{
    if (document.is_null())
        return nullptr;
    const auto &positions = document.at("positions");
    const auto found = std::find_if(positions.begin(), positions.end(),
        [number = command.argument(1).toInt()](
            const Json &one) { return one.at("number") == number; });
    return found == positions.end() ? nullptr : &*found;
}

bool isOpen(const Command &, const Json &, const Json &now)
{
    return !now.is_null();
}

bool isGone(const Command &, const Json &, const Json &now)
{
    return now.is_null();
}

bool hasCard(const Command &command, const Json &, const Json &now)
{
    return !now.is_null() && !now.at("card").is_null()
        && now.at("card").at("number") == argument(command);
}

bool hasCoupon(const Command &command, const Json &, const Json &now)
{
    const Json coupons = listOf(now, "coupons");
    return std::any_of(coupons.begin(), coupons.end(),
        [&](const Json &coupon) { return coupon.at("number") == argument(command); });
}

bool hasMorePositions(const Command &, const Json &before, const Json &now)
{
    return grew(before, now, "positions");
}

// A scan is a card, a coupon, a new position or a greater quantity.
bool hasScanned(const Command &command, const Json &before, const Json &now)
{
    return hasCard(command, before, now) || hasCoupon(command, before, now)
        || listOf(now, "positions") != listOf(before, "positions");
}

bool hasQuantity(const Command &command, const Json &, const Json &now)
{
    const Json *position = positionOf(command, now);
    return position && position->at("quantity") == command.argument(2).toDouble();
}

bool hasNoPosition(const Command &command, const Json &, const Json &now)
{
    return !positionOf(command, now);
}

bool isPaidWithPoints(const Command &, const Json &before, const Json &now)
{
    return listOf(now, "bonusImpacts") != listOf(before, "bonusImpacts")
        && !listOf(now, "bonusImpacts").empty();
}

bool hasMorePayments(const Command &, const Json &before, const Json &now)
{
    return grew(before, now, "payments");
}

} // namespace

bool hasWorked(const Command &command, const Json &before, const Json &now)
{
    static const QHash<QString, Rule> rules{{u"sale"_s, isOpen}, {u"return"_s, isOpen},
        {u"card"_s, hasCard}, {u"input"_s, hasScanned}, {u"add"_s, hasMorePositions},
        {u"quantity"_s, hasQuantity}, {u"storno"_s, hasNoPosition}, {u"coupon"_s, hasCoupon},
        {u"points"_s, isPaidWithPoints}, {u"pay"_s, hasMorePayments}, {u"close"_s, isGone},
        {u"cancel"_s, isGone}};
    const Rule rule = rules.value(command.name());
    return rule && rule(command, before, now);
}

} // namespace restart
