#pragma once

#include "host/documents/abstractdocument.h"
#include "host/export.h"

#include <QString>
#include <QVariantMap>

/// The receipt of a document.
namespace receipt {

/// Name of the receipt's template.
inline const QString templateName = QStringLiteral("receipt");
/// Characters in a line of the paper.
inline constexpr int paperWidth = 40;

/// Whether the loyalty system knows of the document, or will be told from the outgoing queue.
enum class Booking
{
    Done,
    Later
};

/// What the template "receipt" names. Lines with a text on the left and a figure on the right are
/// padded here, since templates cannot count columns.
[[nodiscard]] POSHOST_EXPORT QVariantMap data(const AbstractDocument &document, Booking booking);

} // namespace receipt
