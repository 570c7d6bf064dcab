#pragma once

#include <QByteArray>

namespace emulator {

/// The message in UTF-8 with an element a line, for reading; as it came when it is no XML.
QByteArray indentedXml(const QByteArray &message);

} // namespace emulator
