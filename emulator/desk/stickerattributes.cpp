#include "emulator/desk/stickerattributes.h"

#include <nlohmann/json.hpp>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace emulator {

namespace {

// Keeps the members in the order in which people read them.
using Json = nlohmann::ordered_json;

/// More units than the quantity of any position has.
constexpr double greatestUnits = 1e9;

constexpr qsizetype longestValue = 4096;

QString offerKey()
{
    return u"StickersInterchange"_s;
}

/// Must not contain "Interchange": a till would take an agreed exchange for an offer.
QString exchangeKey()
{
    return u"StickersExchanged"_s;
}

/// What that attribute holds; in anything but an object no member is found. The text is a till's: a
/// longer one than the service writes is not parsed, since nesting costs memory and recursion.
Json valueIn(const RequestPosition &position, const QString &key)
{
    constexpr bool allowExceptions = false;
    const QString text = position.attributes.value(key);
    if (text.size() > longestValue)
        return {};
    return Json::parse(text.toStdString(), nullptr, allowExceptions);
}

bool isOfCard(const Json &exchange, const QString &card)
{
    const auto number = exchange.find("card");
    return number != exchange.end() && number->is_string()
        && number->get_ref<const std::string &>() == card.toStdString();
}

std::optional<qint64> unitsIn(const Json &deal)
{
    const auto amount = deal.find("amount");
    if (amount == deal.end() || !amount->is_number() || amount->get<double>() < 1)
        return {};
    return static_cast<qint64>(std::min(amount->get<double>(), greatestUnits));
}

QString textOf(const Json &object)
{
    return QString::fromStdString(object.dump());
}

} // namespace

bool carriesOffer(const RequestPosition &position)
{
    return position.attributes.contains(offerKey());
}

std::optional<qint64> unitsOfOffer(const RequestPosition &position)
{
    return unitsIn(valueIn(position, offerKey()));
}

std::optional<qint64> unitsOfExchange(const RequestPosition &position, const QString &card)
{
    const Json exchange = valueIn(position, exchangeKey());
    return isOfCard(exchange, card) ? unitsIn(exchange) : std::nullopt;
}

QMap<QString, QString> stickerAttributes(
    const CalculatedPosition &position, const QString &card, qint64 activeBalance)
{
    if (const auto &deal = position.exchanged)
        return {{exchangeKey(),
            textOf({{"card", card.toStdString()}, {"stickers", deal->stickers()},
                {"amount", deal->units}, {"discount", deal->discountPerUnit.toDouble()}})}};
    if (const auto &deal = position.offered)
        return {{offerKey(),
            textOf({{"activebalance", activeBalance}, {"promocoupons", deal->stickersPerUnit},
                {"amount", deal->units}, {"discount", deal->discountPerUnit.toDouble()}})}};
    return {};
}

} // namespace emulator
