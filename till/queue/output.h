#pragma once

#include "till/queue/deliverytext.h"

#include <QString>

namespace till {

/// Writes the text to standard output as it is, at once.
void print(const QString &text);
/// The object in one line that nothing in it can end or make a terminal's command of.
[[nodiscard]] QString jsonText(const Json &object);
/// Writes the object to standard output, on lines of its own, at once.
void print(const Json &object);
/// Writes a line to standard error, with the program's name before it.
void complain(const QString &line);

/// Tells what a pass of delivery did on standard output, and what is to be done about it on
/// standard error.
void tellDelivery(const DeliveryReport &report, const DeliveryRest &rest, bool json);
/// The latter alone.
void adviseOnDelivery(const DeliveryReport &report, const DeliveryRest &rest);

} // namespace till
