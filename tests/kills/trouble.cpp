#include "tests/kills/trouble.h"

#include <QList>

namespace kills::trouble {

namespace {

// The limit of an exchange is one second.
const QList<QByteArray> whenSold{"soft lose", "soft swallow", "soft reset", "soft half",
    "soft delay 1500", "balance lose", "balance swallow", "refuse 1", "fiscal lose",
    "fiscal swallow", "fiscal half", "fiscal reset", "fiscal status 503", "fiscal delay 1500",
    "fiscal lose", "fiscal swallow"};
const QList<QByteArray> whenReturned{"return lose", "return swallow", "return half", "return reset",
    "return status 503", "refuse 1"};
const QList<QByteArray> whenDelivered{"fiscal lose", "fiscal swallow", "fiscal half", "return lose",
    "return swallow", "all lose", "all status 503", "refuse 1"};
const QList<QByteArray> whenTakenBack{"rollback lose", "rollback swallow"};

constexpr quint32 sales = 45; // percent of them that meet trouble
constexpr quint32 returns = 50;
constexpr quint32 deliveries = 30;
constexpr quint32 rollbacks = 10;

std::optional<QByteArray> drawn(Dice &dice, quint32 percent, const QList<QByteArray> &orders)
{
    if (!dice.falls(percent))
        return std::nullopt;
    return dice.oneOf(orders);
}

} // namespace

std::optional<QByteArray> ofSale(Dice &dice)
{
    if (const auto order = drawn(dice, rollbacks, whenTakenBack))
        return order;
    return drawn(dice, sales, whenSold);
}

std::optional<QByteArray> ofReturn(Dice &dice)
{
    return drawn(dice, returns, whenReturned);
}

std::optional<QByteArray> ofDelivery(Dice &dice)
{
    return drawn(dice, deliveries, whenDelivered);
}

QByteArray ofTroubledSale(Dice &dice)
{
    return dice.oneOf(whenSold);
}

bool isActedUpon(const QByteArray &order)
{
    return order.contains("lose") || order.contains("half") || order.contains("delay");
}

} // namespace kills::trouble
