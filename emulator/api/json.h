#pragma once

#include "emulator/amounts/amount.h"
#include "emulator/api/exchangelog.h"
#include "emulator/desk/desk.h"
#include "emulator/faults/faultplan.h"

#include <nlohmann/json.hpp>

namespace emulator {

/// The API's objects. Members come in the order in which they are documented.
using Json = nlohmann::ordered_json;

Json cardJson(const Card &card, const Books &books);
Json cardWithLedgerJson(const Card &card, const Desk &desk);
Json transactionJson(const Transaction &transaction, const Books &books);
Json exchangeJson(const Exchange &exchange, bool withTexts);
Json codesJson(const Desk &desk); ///< of all cards
Json faultsJson(const FaultPlan &faults);

} // namespace emulator
