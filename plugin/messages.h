#pragma once

#include "common/host/framework.h"

#include <QString>
#include <QStringList>

/// Everything that the plug-in says to the cashier, with the ids that translations are looked up
/// by.
namespace messages {

/// Shown while the till waits for the service.
[[nodiscard]] tr::Tr processLoyalty();

[[nodiscard]] tr::Tr noConnection();
/// The wording is that of a lost connection on purpose: for the cashier there is no difference.
[[nodiscard]] tr::Tr internalError();

/// The service does not accept these coupons.
[[nodiscard]] tr::Tr returnCoupons(const QStringList &numbers);
/// The service cannot be reached, so none of the coupons counts.
[[nodiscard]] tr::Tr internalErrorBackCoupon(const QStringList &numbers);

/// The points that the cheque was paid with are no longer there when it is registered.
[[nodiscard]] tr::Tr checkRegistrationError();

/// The card has fewer points than the customer wants to pay with.
[[nodiscard]] tr::Tr insufficientBonusBalance();
[[nodiscard]] tr::Tr incorrectVerificationCode();
[[nodiscard]] tr::Tr verificationCodeCancelled();

/// The form that asks for the code.
[[nodiscard]] tr::Tr verificationCodeTitle();
[[nodiscard]] tr::Tr verificationCodePrompt();
[[nodiscard]] tr::Tr scanError();
[[nodiscard]] tr::Tr formOk();
[[nodiscard]] tr::Tr formCancel();

/// Markdown goods are sold one by one.
[[nodiscard]] tr::Tr forbidChangeQuantity();

/// The question whether the customer pays with stickers, and its answers.
[[nodiscard]] tr::Tr interchangeStickers();
[[nodiscard]] tr::Tr choiceOk();
[[nodiscard]] tr::Tr choiceCancel();

/// Asks whether the customer pays with stickers and waits for the answer.
[[nodiscard]] bool askForStickers();

/// Shows a message and waits until the cashier has seen it.
void show(const tr::Tr &message);

} // namespace messages
