#pragma once

#include "emulator/data/jsonvalue.h"
#include "emulator/data/servicedata.h"

namespace emulator {

/// The sections of the data file, each read from its own object. All throw DataError.

CardData readCard(const JsonValue &value);
TechnicalCards readTechnicalCards(const JsonValue &value);
void readDiscountsInto(ServiceData &data, const JsonValue &value);
Earning readEarning(const JsonValue &value);
Spending readSpending(const JsonValue &value);
StickerOffer readStickerOffer(const JsonValue &value);
CouponData readCoupon(const JsonValue &value);
InstantCouponRule readInstantCoupon(const JsonValue &value);
void readMessagesInto(ServiceData &data, const JsonValue &value);

} // namespace emulator
