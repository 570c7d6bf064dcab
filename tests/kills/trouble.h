#pragma once

#include "tests/kills/dice.h"

#include <QByteArray>

#include <optional>

namespace kills {

/// What keeps answers from the till: some are lost when the service has acted, some when it has
/// not. Each is an order for `korvel-service`.
namespace trouble {

/// For a sale; nothing when all goes well.
std::optional<QByteArray> ofSale(Dice &dice);
/// The same where it is to meet trouble.
QByteArray ofTroubledSale(Dice &dice);
/// For a return.
std::optional<QByteArray> ofReturn(Dice &dice);
/// For the delivery of the queue.
std::optional<QByteArray> ofDelivery(Dice &dice);

/// Whether the service has acted upon a request that met this order.
bool isActedUpon(const QByteArray &order);

} // namespace trouble

} // namespace kills
