#pragma once

#include "host/dialogs/dialog.h"

#include <QString>

/// What the till itself asks the cashier for, as forms. Those whose answer is a number show the
/// digital keyboard where "Till:digitalKeyboard" is set.
namespace till::forms {

[[nodiscard]] InputTextFormParameters quantity();
[[nodiscard]] InputTextFormParameters card();
[[nodiscard]] InputTextFormParameters coupon();
/// An empty answer: as many points as can be spent.
[[nodiscard]] InputTextFormParameters points();
/// An empty answer: a return without a sale.
[[nodiscard]] InputTextFormParameters soldCheque();

/// The number in a text that one of these forms accepts; the comma counts as a point.
[[nodiscard]] double number(const QString &text);

} // namespace till::forms
