#pragma once

#include "host/documents/abstractdocument.h"

#include <QString>
#include <QStringList>

/// Parts of a document in plain words, a line each.
namespace till::words {

[[nodiscard]] QString opened(const AbstractDocument &document);
/// The loyalty card with its holder and, in a sale, its balance; nothing without a card.
[[nodiscard]] QStringList card(const AbstractDocument &document);
[[nodiscard]] QString position(const GoodsItem &position);
[[nodiscard]] QString sums(const AbstractDocument &document);
[[nodiscard]] QString coupon(const Coupon &coupon);
[[nodiscard]] QString payment(const Payment &payment);
/// What the loyalty system wants cashier and customer to know; empty messages are left out.
[[nodiscard]] QStringList messages(const AbstractDocument &document);
/// How the document ended, with the points it earned or that they come later.
[[nodiscard]] QStringList ending(const AbstractDocument &document);
/// All of it.
[[nodiscard]] QStringList whole(const AbstractDocument &document);

} // namespace till::words
