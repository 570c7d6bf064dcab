#pragma once

#include "tests/faults/fault.h"

#include <QByteArray>
#include <QString>

namespace faults {

/// @throws std::runtime_error when the file cannot be read.
QByteArray contentsOf(const QString &fileName);
/// @throws std::runtime_error when the file cannot be written.
void replaceContents(const QString &fileName, const QByteArray &contents);

/// Does to a file of a till that is switched off what a fault does.
/// @param kind one that damages files.
/// @throws std::runtime_error when it is not possible.
void damageFile(const QString &fileName, Kind kind);

} // namespace faults
