#pragma once

#include "common/host/documents.h"

#include <QSharedPointer>

/// Saves the document as the till's open document; null: nothing happens.
/// @throws what the host throws when it could not be written.
void saveDocument(const QSharedPointer<AbstractDocument> &document);
