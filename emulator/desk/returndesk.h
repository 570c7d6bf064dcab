#pragma once

#include "emulator/desk/context.h"
#include "emulator/soap/answer.h"
#include "emulator/soap/request.h"

namespace emulator {

/// Books a return, once: takes back what the returned goods earned and gives back what was spent
/// on them, stickers too, by the sale's own figures. Points that the holder has spent meanwhile
/// cannot be taken. A return that names no sale is booked and moves nothing.
Answer returnCheque(const DeskContext &context, const ReturnRequest &request);

} // namespace emulator
