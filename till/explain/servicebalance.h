#pragma once

#include "host/documents/abstractdocument.h"
#include "till/explain/story.h"

namespace till::explain {

/// Whether the settings say where the loyalty service answers.
[[nodiscard]] bool isServiceConfigured();

/// Asks the service for the card's balance, as the plug-in does when a card is presented; books
/// nothing. Waits as long as the plug-in would.
/// @param document whose shop and till are told to the service; may be null.
/// @return a step of the source "service", whatever came of it.
[[nodiscard]] Step askForBalance(const QString &card, AbstractDocument *document);

} // namespace till::explain
