#pragma once

#include "host/queue/queuemessage.h"

/// Hides in a message what only few people may read: credentials and card numbers. Pure functions.
namespace till::masks {

/// A card number with stars in place of all but its last four characters; one that is hardly
/// longer, wholly.
[[nodiscard]] QString maskedNumber(const QString &number);

/// An XML text, whole or cut, with the contents of its "CardNumber" elements masked.
[[nodiscard]] QString withoutCardNumbers(const QString &xml);

/// An XML text, whole or cut, with the contents of its "VerificationCode" elements wholly masked.
[[nodiscard]] QString withoutVerificationCodes(const QString &xml);

/// The message without credentials in its headers and address, and without card numbers: those of
/// its "CardNumber" elements also wherever else they stand in it.
[[nodiscard]] QueueMessage masked(const QueueMessage &message);

} // namespace till::masks
