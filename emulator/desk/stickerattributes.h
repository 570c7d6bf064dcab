#pragma once

#include "emulator/rules/calculation.h"
#include "emulator/soap/request.h"

#include <QMap>

#include <optional>

namespace emulator {

/// How positions speak of stickers: by attributes whose values are JSON objects. A till keeps them
/// with the position and sends them back; it takes one for an offer when "Interchange" is part of
/// its key, asks the cashier, and drops it when the answer is no.

/// Whether the position carries an offer, readable or not.
bool carriesOffer(const RequestPosition &position);

/// Units of the offer that the position carries; nothing when there is none to be read.
std::optional<qint64> unitsOfOffer(const RequestPosition &position);

/// Units that were exchanged for that card; nothing when the position carries no exchange, one that
/// cannot be read, or another card's.
std::optional<qint64> unitsOfExchange(const RequestPosition &position, const QString &card);

/// The attribute of the position's exchange or offer; none when it has neither. `activeBalance`:
/// the stickers that the exchanges of the cheque leave.
QMap<QString, QString> stickerAttributes(
    const CalculatedPosition &position, const QString &card, qint64 activeBalance);

} // namespace emulator
