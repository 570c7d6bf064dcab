#pragma once

#include "host/export.h"

#include <QString>

/// A file that only takes up room, kept so that a full disk can still be made to take messages.
namespace ballast {

/// Makes the file where it is missing or smaller, private. Where there is no room for it, it stays
/// away: that is no error.
/// @param bytes its size; 0: none is kept, and one that is there goes.
/// @return whether what is wanted is there.
POSHOST_EXPORT bool keep(const QString &fileName, qint64 bytes);

/// Gives its room back.
/// @return whether there was any.
POSHOST_EXPORT bool release(const QString &fileName);

} // namespace ballast
