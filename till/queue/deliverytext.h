#pragma once

#include "host/queue/verdict.h"
#include "till/exitstatus.h"
#include "till/transcript/json.h"

#include <QStringList>

namespace till {

/// What is left behind a pass.
struct DeliveryRest
{
    int waiting = 0; ///< messages that wait
    int spilled = 0; ///< those of them that the queue's file could not take, and nobody can send
    bool wasEnded = false; ///< somebody asked the pass to end
};

/// What a pass did, in one line.
[[nodiscard]] QString deliveryText(const DeliveryReport &report, const DeliveryRest &rest);
/// The same for programs.
[[nodiscard]] Json deliveryObject(const DeliveryReport &report, const DeliveryRest &rest);

/// What a person is to do about it, a line each; none when all went well.
[[nodiscard]] QStringList deliveryAdvice(const DeliveryReport &report, const DeliveryRest &rest);

/// Whether the pass did anything to a message.
[[nodiscard]] bool didSomething(const DeliveryReport &report);
/// `Success` when every message that was to be sent was delivered, otherwise `NotAllDone`.
[[nodiscard]] ExitStatus deliveryStatus(const DeliveryReport &report, const DeliveryRest &rest);

} // namespace till
