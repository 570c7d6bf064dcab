#pragma once

#include "host/queue/verdict.h"
#include "till/exitstatus.h"
#include "till/transcript/json.h"

#include <QStringList>

namespace till {

/// What a pass did, in one line.
/// @param waiting messages that wait behind it.
[[nodiscard]] QString deliveryText(const DeliveryReport &report, int waiting);
/// The same for programs.
[[nodiscard]] Json deliveryObject(const DeliveryReport &report, int waiting);

/// What a person is to do about it, a line each; none when all went well.
[[nodiscard]] QStringList deliveryAdvice(const DeliveryReport &report);

/// Whether the pass did anything to a message.
[[nodiscard]] bool didSomething(const DeliveryReport &report);
/// `Success` when every message that was to be sent was delivered, otherwise `NotAllDone`.
[[nodiscard]] ExitStatus deliveryStatus(const DeliveryReport &report);

} // namespace till
